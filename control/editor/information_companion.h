#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>

#include "automation/com_ptr.h"
#include "automation/guarded.h"
#include "companions/contracts/ontiva.h"

namespace mavrin2::editor {

// A marker as sound files store it.
struct StoredMarker {
    std::int32_t Position = 0;  // sample frames of the file
    std::int32_t Length = 0;    // sample frames; 0 for a cue
    std::string Label;          // UTF-8, as the other texts
    std::string Note;
    std::string Text;
};

// The information companion as the control calls it: tags and markers of one file. Without a
// companion every call does nothing, and what a companion throws ends here. Files are read and
// written without events.
class InformationCompanion {
public:
    void Attach(automation::ComPtr<contracts::IOntiva> companion) {
        companion_ = std::move(companion);
    }
    void Release() { companion_.Reset(); }

    // 1: read and write. The first setting of a new companion.
    void SetInfoSwitch(std::int32_t value);
    // Replaces tags and markers by those of the file. False when it could not be read; nothing is
    // held then.
    bool ReadInfo(const std::filesystem::path& path);
    // Writes tags and markers to the file. False when the file is as it was.
    bool WriteInfo(const std::filesystem::path& path);

    // A companion that counts more is faulty, and as one without markers.
    static constexpr std::int32_t kMostMarkers = 1000000;

    // Passes the markers in list order, up to one that the companion refuses to describe.
    void ForEachMarker(const std::function<void(const StoredMarker&)>& use);
    // False when the companion keeps markers that it was asked to remove, or is faulty.
    bool RemoveMarkers();
    bool AddMarker(const StoredMarker& marker);

    // One call of the contract; fails with E_FAIL without a companion.
    template <class... Parameters, class... Arguments>
    HRESULT Call(HRESULT (STDMETHODCALLTYPE contracts::IOntiva::*method)(Parameters...),
                 Arguments... arguments) {
        return automation::Guarded([&]() -> HRESULT {
            // A companion may call the host, which may release the control.
            const auto companion = companion_;
            return companion ? (companion.Get()->*method)(arguments...) : E_FAIL;
        });
    }

private:
    std::int32_t MarkerCount();
    bool DescribeMarker(std::int32_t number, StoredMarker& marker);

    automation::ComPtr<contracts::IOntiva> companion_;
};

// What is stored with a sound beside its samples.
struct ExtraInfo {
    InformationCompanion Companion;
    std::int16_t SaveExtraInfoEnabled = 1;  // as a host put it; not 0: Save writes tags and markers
};

}  // namespace mavrin2::editor
