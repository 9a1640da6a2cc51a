#pragma once

#include <QDialog>
#include <functional>
#include <vector>

#include "automation/variant.h"
#include "hosts/desktop/effects/effect_parameter.h"

class QFormLayout;

namespace mavrin2::desktop {

// Asks for the arguments of an operation. The values accepted last are offered again.
class EffectDialog final : public QDialog {
public:
    EffectDialog(const binding::DescribedMember& operation,
                 const std::vector<EffectParameter>& parameters, QWidget* parent);

    // After the dialog was accepted, in the order of the parameters.
    std::vector<automation::Variant> Arguments() const;

    void accept() override;

private:
    void Add(const EffectParameter& parameter, const QString& key, QFormLayout& form);

    // A field's value, and how it is kept until the next time.
    struct Field {
        std::function<automation::Variant()> Value;
        std::function<void()> Keep;
    };
    std::vector<Field> fields_;
};

}  // namespace mavrin2::desktop
