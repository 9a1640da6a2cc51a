#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include "hosts/binding/type_description.h"

namespace mavrin2::desktop {

// A parameter of an operation, as a dialog asks for it.
struct EffectParameter {
    enum class Kind { Number, Switch, Choice, Numbers };

    Kind Type = Kind::Number;
    QString Label;
    QString Unit;
    double Low = -1e6;
    double High = 1e6;
    double Usual = 0;
    QStringList Choices;         // names, of Choice
    std::vector<qint32> Values;  // of the choices
    QString UsualNumbers;        // of Numbers
};

// What an operation does, in words: the part of its help before the parameters.
QString Summary(const binding::DescribedMember& operation);

// Made from the description. The help of an operation ends in a list of units and ranges, one for
// each parameter, as in "Adds echoes: ms, 1 ... 10000; percent, 0 ... 100"; a parameter without one
// takes any number.
std::vector<EffectParameter> ParametersOf(const binding::DescribedMember& operation,
                                          const std::vector<binding::Constant>& constants);

// "Low pass filter" for LowPassFilter.
QString Spoken(const std::string& name);

}  // namespace mavrin2::desktop
