#include "hosts/desktop/effects/effects_menu.h"

#include "hosts/desktop/effects/effect_dialog.h"

namespace mavrin2::desktop {

EffectsMenu::EffectsMenu(Editor& editor, QWidget* parent)
    : QMenu("Effe&cts", parent), editor_(editor), transform_(editor.Part("Transform")) {
    const auto information = binding::TypeInformationOf(transform_.Object());
    if (!information) return;
    description_ = binding::TypeDescription(*information);
    constants_ = binding::ConstantsBeside(*information);
    for (const binding::DescribedMember& member : description_.Members()) {
        if (member.Kind != INVOKE_FUNC) continue;
        const QString dots = member.Parameters.empty() ? "" : "...";
        QAction* const action = addAction(Spoken(member.Name) + dots);
        action->setObjectName(QString::fromStdString(member.Name));
        action->setStatusTip(QString::fromStdString(member.Help));
        connect(action, &QAction::triggered, this, [this, &member] { Run(member); });
    }
}

void EffectsMenu::Run(const binding::DescribedMember& operation) {
    EffectDialog dialog(operation, ParametersOf(operation, constants_), parentWidget());
    if (!operation.Parameters.empty() && dialog.exec() != QDialog::Accepted) return;
    const std::vector<automation::Variant> given = dialog.Arguments();
    editor_.EditKeepingZoom([&] {
        const SoundPosition at = editor_.Position();
        // What processes the selection takes all where nothing is selected.
        if (!at.Selected && operation.Name != "InsertSilence") editor_.Select(0, at.Total);
        // A copy of each, which does not own.
        std::vector<VARIANT> arguments(given.begin(), given.end());
        binding::Invoke(transform_.Object(),
                        {operation.Name, operation.Id, DISPATCH_METHOD, arguments});
    });
}

}  // namespace mavrin2::desktop
