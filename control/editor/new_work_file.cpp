#include "control/editor/new_work_file.h"

namespace mavrin2::editor {

bool NewWorkFile::Create(const DocumentFormat& format) {
    Discard();
    path_ = temporary_.MakeTempFileName();
    return !path_.empty() && stream_.Create(path_, format.Frequency, format.Channels);
}

bool NewWorkFile::PushTo(UndoHistory& history, const DocumentFormat& format) {
    const Bytes length(stream_.Length());
    if (!stream_.Close()) return false;
    history.Push(path_, length, format);
    path_.clear();
    return true;
}

void NewWorkFile::Discard() {
    stream_.Close();
    temporary_.Remove(path_);
    path_.clear();
}

}  // namespace mavrin2::editor
