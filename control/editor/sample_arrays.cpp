#include "control/editor/sample_arrays.h"

#include <algorithm>

#include "control/editor/range_edit.h"
#include "control/editor/wave_stream.h"

namespace mavrin2::editor {
namespace {

bool HasSamples(SAFEARRAY* array) {
    VARTYPE type = VT_EMPTY;
    return SafeArrayGetDim(array) == 1 && SUCCEEDED(SafeArrayGetVartype(array, &type)) &&
           type == VT_I2;
}

}  // namespace

SampleArrays::Samples SampleArrays::GetAudioArray(std::int32_t frames) {
    if (live_.IsLive()) return live_.RecentSamples(frames);
    const DocumentState* version = document_.History.Current();
    const bool paused = operation_.Status.Status() == StatusConstants::Paused;
    if (!version || !(operation_.Status.Idle() || paused)) return {};
    ErrorConstants& error = operation_.Status.LastError;
    error = ErrorConstants::NOERRORS;
    WaveStream source(storage_.Files);
    if (!source.OpenWhole(version->WorkFilePath, version->TotalBytes)) {
        error = ErrorConstants::FILEACCESS;
        return {};
    }
    const Bytes start = version->Level().StartSelect;
    const std::int64_t bytes =
        std::clamp<std::int64_t>(frames * document_.Format.FrameSize().Count(), 0,
                                 std::max<std::int64_t>((version->TotalBytes - start).Count(), 0));
    source.Seek(start.Count());
    try {
        Samples samples(static_cast<std::size_t>(bytes / 2));
        const automation::ArrayView<std::int16_t> view(samples.Get());
        if (source.ReadWhole(std::as_writable_bytes(view.Elements()))) return samples;
        error = ErrorConstants::FILEACCESS;
    } catch (const std::bad_alloc&) {
        error = ErrorConstants::MEMORY;
    }
    return {};
}

void SampleArrays::PutAudioArray(SAFEARRAY* array) {
    if (!Ready(document_, operation_)) return;
    operation_.Status.LastError = ErrorConstants::NOERRORS;
    if (array && !HasSamples(array)) operation_.Status.LastError = ErrorConstants::INVALIDPARAM;
    const automation::ArrayView<std::int16_t> view(array);
    const auto samples = std::as_bytes(view.Elements());
    if (samples.empty()) return;
    const DocumentState& version = *document_.History.Current();
    const ZoomLevel level = version.Level();
    RangeEdit edit(document_, operation_, storage_, presentation_, StatusConstants::Saving,
                   {level.StartSelect, version.Selected ? level.EndSelect : level.StartSelect},
                   Bytes(static_cast<std::int64_t>(samples.size())));
    if (!edit.BeginEdit()) return;
    if (edit.Target().Write(samples))
        edit.CommitEdit();
    else
        edit.AbandonEdit(ErrorConstants::FILEACCESS);
}

}  // namespace mavrin2::editor
