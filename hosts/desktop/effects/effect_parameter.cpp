#include "hosts/desktop/effects/effect_parameter.h"

#include <QRegularExpression>
#include <algorithm>

namespace mavrin2::desktop {
namespace {

using binding::Constant;
using binding::DescribedParameter;

// What a dialog offers at first where the ranges do not say it.
struct UsualValue {
    const char* Unit;
    double Number;
    const char* Numbers;
};
constexpr UsualValue kUsual[] = {{"percent", 100, "100 100 100"}, {"dB", -6, "0 0 0"},
                                 {"ms", 100, "100 100 100"},      {"Hz", 1000, "100 1000 10000"},
                                 {"ratio", 2, "2 2 2"},           {"weights", 1, "1 1 1"},
                                 {"filters", 1, "1 1 1"},         {"cents", 50, "50 50"},
                                 {"coefficients", 127, "127"},    {"degrees", 0, "0"}};

// The list of units and ranges at the end of a help text.
QStringList RangesOf(const QString& help) {
    const qsizetype colon = help.indexOf(": ");
    return colon < 0 ? QStringList() : help.mid(colon + 2).split("; ");
}

const UsualValue* Find(const QString& unit) {
    const auto* const found =
        std::ranges::find_if(kUsual, [&](const UsualValue& value) { return unit == value.Unit; });
    return found == std::end(kUsual) ? nullptr : found;
}

void ReadRange(const QString& text, EffectParameter& parameter) {
    static const QRegularExpression kRange(R"((-?[\d.]+)\s*\.\.\.\s*(-?[\d.]+))");
    for (const QString& word : text.section(',', 0, 0).split(' '))
        if (parameter.Unit.isEmpty() && Find(word)) parameter.Unit = word;
    const auto match = kRange.match(text);
    if (!match.hasMatch()) return;
    parameter.Low = match.captured(1).toDouble();
    parameter.High = match.captured(2).toDouble();
}

void SetUsual(EffectParameter& parameter) {
    const UsualValue* const usual = Find(parameter.Unit);
    // Full is too much where percents are a share of something.
    const bool share = parameter.Unit == "percent" && parameter.High <= 100;
    const double number = share ? parameter.High / 2 : usual ? usual->Number : 0;
    parameter.Usual = std::clamp(number, parameter.Low, parameter.High);
    parameter.UsualNumbers = usual ? usual->Numbers : "0";
}

void SetKind(const DescribedParameter& described, const std::vector<Constant>& constants,
             EffectParameter& parameter) {
    using Kind = EffectParameter::Kind;
    if (described.Type.Type & VT_ARRAY) parameter.Type = Kind::Numbers;
    if (described.Type.Type == VT_BOOL) parameter.Type = Kind::Switch;
    if (described.Type.Type != VT_I4) return;
    for (const Constant& constant : constants) {
        if (constant.Enumeration != described.Type.Name) continue;
        parameter.Type = Kind::Choice;
        // Without what the names have in common: "Both" for TRIM_BOTH.
        QString name = QString::fromStdString(constant.Name).section('_', 1).toLower();
        if (!name.isEmpty()) name[0] = name[0].toUpper();
        parameter.Choices += name;
        parameter.Values.push_back(constant.Value.lVal);
        if (described.Default.vt == VT_I4 && described.Default.lVal == constant.Value.lVal)
            parameter.Usual = static_cast<double>(parameter.Values.size() - 1);
    }
}

}  // namespace

QString Spoken(const std::string& name) {
    static const QRegularExpression kWord("[A-Z]+(?![a-z])|[A-Z][a-z0-9]*|[a-z0-9]+");
    QStringList words;
    auto matches = kWord.globalMatch(QString::fromStdString(name));
    while (matches.hasNext()) {
        const QString word = matches.next().captured();
        const bool initials = word.size() > 1 && word == word.toUpper();
        words += initials ? word : word.toLower();
    }
    // Units that are part of a name are shown behind the number.
    if (words.size() > 1 && words.front() == "db") words.removeFirst();
    QString text = words.join(' ');
    if (!text.isEmpty()) text[0] = text[0].toUpper();
    return text;
}

QString Summary(const binding::DescribedMember& operation) {
    const QString help = QString::fromStdString(operation.Help);
    return help.section(": ", 0, 0);
}

std::vector<EffectParameter> ParametersOf(const binding::DescribedMember& operation,
                                          const std::vector<Constant>& constants) {
    const QStringList ranges = RangesOf(QString::fromStdString(operation.Help));
    std::vector<EffectParameter> parameters;
    for (const DescribedParameter& described : operation.Parameters) {
        EffectParameter parameter;
        parameter.Label = Spoken(described.Name);
        const auto index = static_cast<qsizetype>(parameters.size());
        // A single range is that of all.
        if (index < ranges.size() || ranges.size() == 1)
            ReadRange(ranges[std::min(index, ranges.size() - 1)], parameter);
        SetUsual(parameter);
        SetKind(described, constants, parameter);
        parameters.push_back(std::move(parameter));
    }
    return parameters;
}

}  // namespace mavrin2::desktop
