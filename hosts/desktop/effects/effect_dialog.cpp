#include "hosts/desktop/effects/effect_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <QSettings>
#include <algorithm>

#include "automation/safe_array.h"

namespace mavrin2::desktop {
namespace {

using automation::Variant;

Variant RealVariant(double number) {
    Variant value;
    value.vt = VT_R8;
    value.dblVal = number;
    return value;
}

Variant ArrayVariant(const QString& text) {
    const QStringList words = text.split(' ', Qt::SkipEmptyParts);
    automation::SafeArray<float> array(static_cast<std::size_t>(words.size()));
    std::ranges::transform(words, automation::ArrayView<float>(array.Get()).Elements().begin(),
                           [](const QString& word) { return word.toFloat(); });
    Variant value;
    value.vt = VT_ARRAY | VT_R4;
    value.parray = array.Detach();
    return value;
}

}  // namespace

EffectDialog::EffectDialog(const binding::DescribedMember& operation,
                           const std::vector<EffectParameter>& parameters, QWidget* parent)
    : QDialog(parent) {
    setWindowTitle(Spoken(operation.Name));
    auto* const form = new QFormLayout(this);
    auto* const summary = new QLabel(Summary(operation) + ".");
    summary->setWordWrap(true);
    form->addRow(summary);
    for (const EffectParameter& parameter : parameters)
        Add(parameter, "effects/" + QString::fromStdString(operation.Name) + '/' + parameter.Label,
            *form);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &EffectDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &EffectDialog::reject);
    form->addRow(buttons);
}

void EffectDialog::Add(const EffectParameter& parameter, const QString& key, QFormLayout& form) {
    const auto keep = [key](const QVariant& value) { QSettings().setValue(key, value); };
    const QSettings kept;
    switch (parameter.Type) {
        case EffectParameter::Kind::Number: {
            auto* const box = new QDoubleSpinBox;
            box->setRange(parameter.Low, parameter.High);
            box->setValue(kept.value(key, parameter.Usual).toDouble());
            if (!parameter.Unit.isEmpty()) box->setSuffix(' ' + parameter.Unit);
            form.addRow(parameter.Label, box);
            fields_.push_back(
                {[box] { return RealVariant(box->value()); }, [box, keep] { keep(box->value()); }});
            break;
        }
        case EffectParameter::Kind::Switch: {
            auto* const box = new QCheckBox;
            box->setChecked(kept.value(key, false).toBool());
            form.addRow(parameter.Label, box);
            fields_.push_back({[box] { return RealVariant(box->isChecked() ? -1 : 0); },
                               [box, keep] { keep(box->isChecked()); }});
            break;
        }
        case EffectParameter::Kind::Choice: {
            auto* const box = new QComboBox;
            box->addItems(parameter.Choices);
            box->setCurrentIndex(kept.value(key, static_cast<int>(parameter.Usual)).toInt());
            form.addRow(parameter.Label, box);
            const auto values = parameter.Values;
            fields_.push_back({[box, values] {
                                   const auto index = static_cast<std::size_t>(box->currentIndex());
                                   return RealVariant(values.at(index));
                               },
                               [box, keep] { keep(box->currentIndex()); }});
            break;
        }
        case EffectParameter::Kind::Numbers: {
            auto* const box = new QLineEdit(kept.value(key, parameter.UsualNumbers).toString());
            box->setValidator(
                new QRegularExpressionValidator(QRegularExpression(R"((-?\d+(\.\d+)? *)+)"), box));
            box->setPlaceholderText("numbers with spaces between them");
            const QString unit = parameter.Unit.isEmpty() ? "" : " (" + parameter.Unit + ")";
            form.addRow(parameter.Label + unit, box);
            fields_.push_back(
                {[box] { return ArrayVariant(box->text()); }, [box, keep] { keep(box->text()); }});
            break;
        }
    }
}

std::vector<Variant> EffectDialog::Arguments() const {
    std::vector<Variant> arguments;
    for (const Field& field : fields_)
        arguments.push_back(field.Value());
    return arguments;
}

void EffectDialog::accept() {
    for (const Field& field : fields_)
        field.Keep();
    QDialog::accept();
}

}  // namespace mavrin2::desktop
