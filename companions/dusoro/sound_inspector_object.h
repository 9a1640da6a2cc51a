#pragma once

#include <memory>
#include <vector>

#include "automation/object.h"
#include "companions/contracts/sound_inspector.h"
#include "companions/dusoro/sound/sound_files.h"

namespace mavrin2::dusoro {

// The class KovDusoroInspector. Without a file its properties are 0 and empty.
class SoundInspectorObject final
    : public automation::AutomationObject<SoundInspectorObject, contracts::ISoundInspector> {
public:
    SoundInspectorObject(IUnknown* outer, SoundFiles files)
        : AutomationObject(outer), files_(std::move(files)) {}
    ~SoundInspectorObject() = default;

    STDMETHODIMP Inspect(BSTR fileName) override;
    STDMETHODIMP Skip(LONG count, LONG* frames) override;
    STDMETHODIMP get_FormatText(BSTR* Value) override;
    STDMETHODIMP get_Frequency(LONG* Value) override;
    STDMETHODIMP get_Channels(LONG* Value) override;
    STDMETHODIMP get_BitsPerSample(LONG* Value) override;
    STDMETHODIMP get_PlainPcm(VARIANT_BOOL* Value) override;
    STDMETHODIMP get_Frames(DOUBLE* Value) override;
    STDMETHODIMP get_StatedFrames(DOUBLE* Value) override;
    STDMETHODIMP get_DamagedBlocks(LONG* Value) override;
    STDMETHODIMP get_LimitedSamples(DOUBLE* Value) override;
    STDMETHODIMP get_ChecksumDiffers(VARIANT_BOOL* Value) override;
    STDMETHODIMP get_EndMissing(VARIANT_BOOL* Value) override;

private:
    SourceDescription Description() const {
        return reader_ ? reader_->Description() : SourceDescription();
    }
    SourceFaults Faults() const { return reader_ ? reader_->Faults() : SourceFaults(); }

    SoundFiles files_;
    std::unique_ptr<SoundReader> reader_;
    std::vector<std::int16_t> block_;
};

}  // namespace mavrin2::dusoro
