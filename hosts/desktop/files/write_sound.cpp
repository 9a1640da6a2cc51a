#include "hosts/desktop/files/write_sound.h"

#include "hosts/desktop/sound/text.h"
#include "platform/replacement_file.h"

namespace mavrin2::desktop {

bool WriteSound(Editor& editor, const QString& name, bool selection) {
    std::error_code error;
    const auto staged = platform::SystemReplacementFiles()->Stage(FileName(name), error);
    if (staged) {
        const std::string file = staged->Path().string();
        if (!editor.Edit([&] { editor.Members().Call("Save", file, selection); })) return false;
        error = staged->Commit();
    }
    if (!error) return true;
    emit editor.Failed("\"" + name +
                       "\" cannot be written: " + QString::fromStdString(error.message()));
    return false;
}

}  // namespace mavrin2::desktop
