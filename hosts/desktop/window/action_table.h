#pragma once

#include <span>

namespace mavrin2::desktop {

class DocumentFile;
class Editor;
class Navigation;
class SoundClipboard;

// What actions work on.
struct ActionTarget {
    Editor& Sound;
    Navigation& Steps;
    DocumentFile& File;
    SoundClipboard& Clipboard;
};

// What an action needs to be possible.
enum class Needs { Nothing, Sound, Selection, Undo, Redo, Clip };

// An entry of a menu, a separator if it has no text. It is left out if the control does not have
// the member that it calls.
struct ActionRow {
    const char* Menu;
    const char* Text;
    const char* Keys;  // alternatives with a blank between them
    const char* Member;
    Needs When;
    void (*Run)(const ActionTarget& target);
};

std::span<const ActionRow> ActionTable();

}  // namespace mavrin2::desktop
