#include "hosts/script/commands/operations.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "automation/safe_array.h"
#include "automation/text.h"
#include "hosts/script/commands/command.h"

namespace mavrin2::script {
namespace {

using automation::Variant;

std::optional<double> NumberOf(std::string_view text) {
    double value = 0;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, value);
    if (result.ec != std::errc() || result.ptr != end) return std::nullopt;
    return value;
}

std::vector<std::string_view> Split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t at = text.find(separator);
        parts.push_back(text.substr(0, at));
        if (at == std::string_view::npos) return parts;
        text.remove_prefix(at + 1);
    }
}

// Numbers with colons between them; nothing for anything else.
std::optional<Variant> ArrayOf(std::string_view text) {
    std::vector<float> numbers;
    for (const std::string_view part : Split(text, ':')) {
        const auto number = NumberOf(part);
        if (!number) return std::nullopt;
        numbers.push_back(static_cast<float>(*number));
    }
    automation::SafeArray<float> array(numbers.size());
    std::ranges::copy(numbers, automation::ArrayView<float>(array.Get()).Elements().begin());
    Variant value;
    value.vt = VT_ARRAY | VT_R4;
    value.parray = array.Detach();
    return value;
}

}  // namespace

Operations::Operations(binding::LateBound object, Naming naming)
    : object_(std::move(object)), naming_(std::move(naming)) {
    const auto information = binding::TypeInformationOf(object_.Object());
    description_ = binding::TypeDescription(*information);
    constants_ = binding::ConstantsBeside(*information);
}

// Objects cannot be given on a command line.
bool Operations::IsOffered(const binding::DescribedMember& member) const {
    return member.Kind == INVOKE_FUNC && member.Result.IsVoid() &&
           member.Name.starts_with(naming_.Prefix) &&
           std::ranges::none_of(member.Parameters,
                                [](const auto& parameter) { return parameter.Type.IsObject(); });
}

// The parameters in their order, arrays marked as such.
std::string Operations::UsageOf(const binding::DescribedMember& member) const {
    std::string usage = member.Name.substr(naming_.Prefix.size());
    char before = '=';
    for (const binding::DescribedParameter& parameter : member.Parameters) {
        usage += before + parameter.Name;
        if (parameter.Type.Type & VT_ARRAY) usage += ":...";
        before = ',';
    }
    return usage;
}

Variant Operations::ValueOf(const binding::DescribedMember& member,
                            const binding::DescribedParameter& parameter,
                            std::string_view text) const {
    const auto invalid = [&](const char* wanted) {
        return UsageError("invalid " + parameter.Name + " '" + std::string(text) + "' for " +
                          member.Name + "; " + wanted);
    };
    if (parameter.Type.Type & VT_ARRAY) {
        if (auto array = ArrayOf(text)) return std::move(*array);
        throw invalid("try numbers with colons between them, as in 0:100:50");
    }
    Variant value;
    if (parameter.Type.Type == VT_BSTR) {
        value.bstrVal = automation::NewBstr(text);
        value.vt = VT_BSTR;
        return value;
    }
    const auto constant = std::ranges::find(constants_, text, &binding::Constant::Name);
    if (const auto number = NumberOf(text)) {
        value.vt = VT_R8;
        value.dblVal = *number;
    } else if (constant != constants_.end()) {
        VariantCopy(&value, const_cast<VARIANT*>(static_cast<const VARIANT*>(&constant->Value)));
    } else {
        throw invalid("try a number");
    }
    if (FAILED(VariantChangeType(&value, &value, 0, parameter.Type.Type)))
        throw invalid("it is out of range");
    return value;
}

OperationCall Operations::Parse(std::string_view text) const {
    const std::size_t sign = text.find('=');
    const std::string_view name = text.substr(0, sign);
    const binding::DescribedMember* const member =
        description_.Find(naming_.Prefix + std::string(name), INVOKE_FUNC);
    if (!member || !IsOffered(*member))
        throw UsageError("unknown " + naming_.Kind + " '" + std::string(name) + "'; `" +
                         naming_.ListedBy + "` lists them");
    OperationCall call{std::string(text), member->Name, member->Id, {}};
    std::vector<std::string_view> values;
    if (sign != std::string_view::npos) values = Split(text.substr(sign + 1), ',');
    const auto& parameters = member->Parameters;
    const auto needed = static_cast<std::size_t>(
        std::ranges::count(parameters, false, &binding::DescribedParameter::Optional));
    if (values.size() < needed || values.size() > parameters.size())
        throw UsageError(std::string(name) + ": wrong number of values; try " + UsageOf(*member));
    for (std::size_t i = 0; i < values.size(); ++i)
        call.Arguments.push_back(ValueOf(*member, parameters[i], values[i]));
    return call;
}

void Operations::Run(OperationCall& call) const {
    // A copy of each, which does not own: the caller's values stay its own.
    std::vector<VARIANT> arguments(call.Arguments.begin(), call.Arguments.end());
    binding::Invoke(object_.Object(), {call.Name, call.Member, DISPATCH_METHOD, arguments});
}

std::vector<Operations::Line> Operations::List() const {
    std::vector<Line> lines;
    for (const binding::DescribedMember& member : description_.Members())
        if (IsOffered(member)) lines.push_back({UsageOf(member), member.Help});
    return lines;
}

}  // namespace mavrin2::script
