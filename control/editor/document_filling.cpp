#include "control/editor/document_filling.h"

#include <algorithm>
#include <cstdlib>

namespace mavrin2::editor {

bool DocumentFilling::FailFileAccess() {
    operation_.Status.LastError = ErrorConstants::FILEACCESS;
    return false;
}

bool DocumentFilling::Begin(Bytes expected) {
    expected_ = expected;
    if (!target_.Create(document_.Format)) return FailFileAccess();
    presentation_.Observer.BeginLoading(expected_);
    document_.Channels.Recount(document_.Format.Channels);
    presentation_.View.FormatChanged();
    return ticket_.IsCurrent();
}

bool DocumentFilling::Append(std::span<const std::int16_t> samples) {
    const auto bytes = std::as_bytes(samples);
    if (!target_.Stream().Write(bytes)) return FailFileAccess();
    presentation_.Observer.Block(bytes);
    read_ = read_ + Bytes(static_cast<std::int64_t>(bytes.size()));
    return true;
}

double DocumentFilling::PartDone() const {
    return static_cast<double>(read_.Count()) /
           static_cast<double>(std::max<std::int64_t>(expected_.Count(), 1));
}

bool DocumentFilling::Report(int percent) {
    presentation_.View.ShowProgress(percent);
    operation_.Events.BlockOperation(percent);
    if (!ticket_.IsCurrent()) return false;
    presentation_.View.Redraw();
    return ticket_.IsCurrent();
}

bool DocumentFilling::End() {
    presentation_.Observer.EndLoading();
    return Report(100);
}

bool DocumentFilling::Push() {
    if (!target_.PushTo(document_.History, document_.Format)) return FailFileAccess();
    ticket_.Moved();
    return true;
}

bool DocumentFilling::LengthIsAsExpected() const {
    const Bytes written = document_.History.Current()->TotalBytes;
    return std::abs((written - expected_).Count()) <= written.Count() / 100;
}

}  // namespace mavrin2::editor
