#include "tests/support/fake_dusoro.h"

#include <algorithm>
#include <stdexcept>

#include "automation/safe_array.h"
#include "automation/text.h"

namespace mavrin2::tests {
namespace {

std::string Numbers(LONG first, LONG second) {
    return std::to_string(first) + ", " + std::to_string(second);
}

std::string Name(BSTR fileName) {
    return automation::ToUtf8(automation::Bstr::View(fileName)) + ", ";
}

std::filesystem::path Path(BSTR fileName) {
    return automation::ToPath(automation::Bstr::View(fileName));
}

}  // namespace

HRESULT FakeDusoro::Record(const std::string& name, const std::string& arguments) {
    const std::string call = name + "(" + arguments + ")";
    if (call == lastCall_ && !Calls.empty()) {
        if (++repeated_ > 2) Calls.resize(Calls.rfind(" x"));
        Calls += " x" + std::to_string(repeated_);
        return S_OK;
    }
    lastCall_ = call;
    repeated_ = 1;
    if (!Calls.empty()) Calls += "; ";
    Calls += call;
    return S_OK;
}

STDMETHODIMP FakeDusoro::OpenSoundFile(BSTR fileName, LONG formatType, LONG flag) {
    Record("OpenSoundFile", Name(fileName) + Numbers(formatType, flag));
    GiveUpOutput();
    if (ThrowsInOpen) throw std::runtime_error("a fault of the component");
    readValues_ = 0;
    reads_ = 0;
    code_ = OpenCode;
    if (files_.Load) code_ = static_cast<LONG>(files_.Load(*this, Path(fileName)));
    Reading = code_ == 0;
    return Reading ? S_OK : E_FAIL;
}

HRESULT FakeDusoro::Record(const std::string& name, std::initializer_list<LONG> arguments) {
    std::string text;
    for (const LONG argument : arguments)
        text += (text.empty() ? "" : ", ") + std::to_string(argument);
    return Record(name, text);
}

STDMETHODIMP FakeDusoro::SetFormatLikeSample(BSTR fileName) {
    return Record("SetFormatLikeSample", automation::ToUtf8(automation::Bstr::View(fileName)));
}

STDMETHODIMP FakeDusoro::CloseFile() {
    Record("CloseFile");
    Reading = false;
    if (State != Output::Unfinished) return S_OK;
    if (FailingClose) {
        code_ = FailureCode;
        State = Output::GivenUp;
        return E_FAIL;
    }
    State = Output::Complete;
    if (files_.Store) code_ = static_cast<LONG>(files_.Store(*this, output_));
    return code_ == 0 ? S_OK : E_FAIL;
}

STDMETHODIMP FakeDusoro::CreateSoundFile(BSTR fileName, LONG formatType) {
    Record("CreateSoundFile", Name(fileName) + std::to_string(formatType));
    GiveUpOutput();
    Reading = false;
    code_ = CreateCode;
    output_ = Path(fileName);
    if (files_.Store && !std::filesystem::is_directory(output_.parent_path()))
        code_ = static_cast<LONG>(contracts::ErrorConstants::FILEACCESS);
    if (code_ != 0) return E_FAIL;
    State = Output::Unfinished;
    if (files_.Store) {
        Source.Frequency = givenFrequency_;
        Source.Channels = givenChannels_;
    }
    Written.clear();
    WrittenBlocks.clear();
    return S_OK;
}

STDMETHODIMP FakeDusoro::WriteBlock(SAFEARRAY* samples) {
    Record("WriteBlock");
    if (static_cast<int>(WrittenBlocks.size()) + 1 == FailingWrite) {
        code_ = FailureCode;
        GiveUpOutput();
        return E_FAIL;
    }
    const automation::ArrayView<std::int16_t> view(samples);
    Written.insert(Written.end(), view.Elements().begin(), view.Elements().end());
    WrittenBlocks.push_back(view.Elements().size());
    return S_OK;
}

STDMETHODIMP FakeDusoro::ReadBlock(LONG count, SAFEARRAY** samples) {
    Record("ReadBlock", std::to_string(count));
    if (++reads_ == FailingRead) {
        code_ = FailureCode;
        return E_FAIL;
    }
    const LONG frames = std::min(count, Source.FramesPerRead.value_or(count));
    const std::size_t values = std::min(static_cast<std::size_t>(frames * Source.Channels),
                                        Source.Samples.size() - readValues_);
    automation::SafeArray<std::int16_t> block(values);
    const automation::ArrayView<std::int16_t> view(block.Get());
    std::copy_n(Source.Samples.begin() + static_cast<std::ptrdiff_t>(readValues_), values,
                view.Elements().begin());
    readValues_ += values;
    *samples = block.Detach();
    return S_OK;
}

STDMETHODIMP FakeDusoro::SetPcmFormat(LONG frequency, LONG channels) {
    givenFrequency_ = frequency;
    givenChannels_ = channels;
    return Record("SetPcmFormat", Numbers(frequency, channels));
}

STDMETHODIMP FakeDusoro::GetFormatText(BSTR* text) {
    Record("GetFormatText");
    *text = automation::NewBstr(
        std::string_view(State == Output::Unfinished ? "Fake output" : "Fake sound"));
    return S_OK;
}

}  // namespace mavrin2::tests
