#include "tests/wave_companion/wave_companion.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <string>

#include "automation/safe_array.h"
#include "automation/text.h"

namespace mavrin2::tests {

using contracts::ErrorConstants;

namespace {

void Record(const std::string& call) {
    if (const char* const file = std::getenv("MAVRIN2_TEST_CALLS"))
        std::ofstream(file, std::ios::app) << call << '\n';
}

std::string Text(BSTR text) {
    return automation::ToUtf8(automation::Bstr::View(text));
}

}  // namespace

HRESULT WaveCompanion::Answer(const char* call, LONG* target, LONG value) {
    Record(call);
    *target = value;
    return S_OK;
}

HRESULT WaveCompanion::Finish(ErrorConstants code) {
    code_ = static_cast<LONG>(code);
    return code == ErrorConstants::NOERRORS ? S_OK : E_FAIL;
}

STDMETHODIMP WaveCompanion::OpenSoundFile(BSTR fileName, LONG formatType, LONG flag) {
    return automation::Guarded([&] {
        Record("OpenSoundFile " + Text(fileName) + " " + std::to_string(formatType) + " " +
               std::to_string(flag));
        output_.reset();
        read_ = 0;
        const auto path = automation::ToPath(automation::Bstr::View(fileName));
        auto sound = ReadWave(path);
        sound_ = sound ? std::move(*sound) : WaveSound();
        if (sound) return Finish(ErrorConstants::NOERRORS);
        return Finish(std::filesystem::is_regular_file(path) ? ErrorConstants::FORMATNOTSUPPORT
                                                             : ErrorConstants::FILEACCESS);
    });
}

STDMETHODIMP WaveCompanion::CloseFile() {
    return automation::Guarded([&] {
        Record("CloseFile");
        if (!output_) return S_OK;
        const bool written = WriteWave(*output_, sound_);
        output_.reset();
        return Finish(written ? ErrorConstants::NOERRORS : ErrorConstants::FILEACCESS);
    });
}

STDMETHODIMP WaveCompanion::CreateSoundFile(BSTR fileName, LONG formatType) {
    return automation::Guarded([&] {
        Record("CreateSoundFile " + Text(fileName) + " " + std::to_string(formatType));
        output_.reset();
        const auto path = automation::ToPath(automation::Bstr::View(fileName));
        if (!std::filesystem::is_directory(path.parent_path()))
            return Finish(ErrorConstants::FILEACCESS);
        sound_ = {givenFrequency_, givenChannels_, {}};
        output_ = path;
        return Finish(ErrorConstants::NOERRORS);
    });
}

STDMETHODIMP WaveCompanion::WriteBlock(SAFEARRAY* samples) {
    return automation::Guarded([&] {
        const automation::ArrayView<std::int16_t> view(samples);
        Record("WriteBlock " + std::to_string(view.Elements().size()));
        if (!output_) return Finish(ErrorConstants::INVALIDOPERATION);
        sound_.Samples.insert(sound_.Samples.end(), view.Elements().begin(), view.Elements().end());
        return Finish(ErrorConstants::NOERRORS);
    });
}

STDMETHODIMP WaveCompanion::ReadBlock(LONG count, SAFEARRAY** samples) {
    return automation::Guarded([&] {
        Record("ReadBlock " + std::to_string(count));
        const std::size_t wanted = static_cast<std::size_t>(std::max<LONG>(count, 0)) *
                                   static_cast<std::size_t>(sound_.Channels);
        const std::size_t values = std::min(wanted, sound_.Samples.size() - read_);
        automation::SafeArray<std::int16_t> block(values);
        const automation::ArrayView<std::int16_t> view(block.Get());
        std::copy_n(sound_.Samples.begin() + static_cast<std::ptrdiff_t>(read_), values,
                    view.Elements().begin());
        read_ += values;
        *samples = block.Detach();
        return S_OK;
    });
}

STDMETHODIMP WaveCompanion::SetPcmFormat(LONG frequency, LONG channels) {
    Record("SetPcmFormat " + std::to_string(frequency) + " " + std::to_string(channels));
    givenFrequency_ = frequency;
    givenChannels_ = channels;
    return S_OK;
}

STDMETHODIMP WaveCompanion::SetFormatPCM(LONG frequency, LONG channels, LONG bits) {
    Record("SetFormatPCM " + std::to_string(frequency) + " " + std::to_string(channels) + " " +
           std::to_string(bits));
    return S_OK;
}

STDMETHODIMP WaveCompanion::SetFormatVOX(LONG frequency) {
    Record("SetFormatVOX " + std::to_string(frequency));
    return S_OK;
}

STDMETHODIMP WaveCompanion::GetLength(LONG* frames) {
    return Answer("GetLength", frames,
                  static_cast<LONG>(sound_.Samples.size()) / std::max(sound_.Channels, 1));
}

STDMETHODIMP WaveCompanion::GetSourceFrequency(LONG* frequency) {
    return Answer("GetSourceFrequency", frequency, sound_.Frequency);
}

STDMETHODIMP WaveCompanion::GetFormatText(BSTR* text) {
    return automation::Guarded([&] {
        Record("GetFormatText");
        *text = automation::NewBstr(std::string_view("WAVE of the tests"));
    });
}

STDMETHODIMP WaveCompanion::GetBitsPerSample(LONG* bits) {
    return Answer("GetBitsPerSample", bits, 16);
}

STDMETHODIMP WaveCompanion::GetErrorCode(LONG* code) {
    return Answer("GetErrorCode", code, code_);
}

STDMETHODIMP WaveCompanion::GetChannels(LONG* channels) {
    return Answer("GetChannels", channels, sound_.Channels);
}

STDMETHODIMP WaveCompanion::GetFrequency(LONG* frequency) {
    return Answer("GetFrequency", frequency, sound_.Frequency);
}

STDMETHODIMP WaveCompanion::GetFormatKind(LONG* kind) {
    return Answer("GetFormatKind", kind, 1);
}

STDMETHODIMP WaveCompanion::SetWmaMode(LONG on) {
    Record("SetWmaMode " + std::to_string(on));
    return S_OK;
}

}  // namespace mavrin2::tests
