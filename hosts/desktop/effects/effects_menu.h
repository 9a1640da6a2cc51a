#pragma once

#include <QMenu>
#include <vector>

#include "hosts/binding/type_description.h"
#include "hosts/desktop/sound/editor.h"

namespace mavrin2::desktop {

// The operations of the control's Transform object, each with a dialog for its parameters. Both are
// made from the object's description.
class EffectsMenu final : public QMenu {
public:
    EffectsMenu(Editor& editor, QWidget* parent);

private:
    void Run(const binding::DescribedMember& operation);

    Editor& editor_;
    binding::LateBound transform_;
    binding::TypeDescription description_;
    std::vector<binding::Constant> constants_;
};

}  // namespace mavrin2::desktop
