#pragma once

namespace mavrin2::script {

// The sound editor, by the name under which components are found.
inline constexpr const char* kEditorProgId = "KovMavrin2.Mavrin2";

// A build tree and an installation have a component registry of their own beside the program; it is
// the one in use for this process unless MAVRIN2_REGISTRY names another.
void FindComponents();

}  // namespace mavrin2::script
