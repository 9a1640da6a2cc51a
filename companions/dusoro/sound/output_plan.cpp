#include "companions/dusoro/sound/output_plan.h"

#include "companions/dusoro/sound/reading_plan.h"

namespace mavrin2::dusoro {
namespace {

Outcome<OutputPlan> PlanByName(const std::string& extension, const OutputSettings& settings) {
    const OutputFormat& chosen = settings.Chosen;
    if (const auto container = ContainerFor(chosen, extension))
        return OutputPlan{chosen, *container};
    if (!IsKnownExtension(extension)) return OutputPlan{chosen, UsualContainer(chosen)};
    const auto format = FormatByExtension(extension, settings.Document);
    if (!format) return SoundError::FormatNotSupported;
    return OutputPlan{*format, ContainerFor(*format, extension).value_or(UsualContainer(*format))};
}

Outcome<OutputPlan> PlanByType(FormatType type, const OutputSettings& settings) {
    const OutputFormat& chosen = settings.Chosen;
    if (IsOfType(chosen, type)) return OutputPlan{chosen, UsualContainer(chosen)};
    const auto format = FormatByType(type, settings.Document);
    if (!format) return SoundError::FormatNotSupported;
    return OutputPlan{*format, UsualContainer(*format)};
}

}  // namespace

Outcome<OutputPlan> PlanOutput(const std::filesystem::path& name, FormatType type,
                               const OutputSettings& settings) {
    auto plan = type == FormatType::Default ? PlanByName(ExtensionOf(name), settings)
                                            : PlanByType(type, settings);
    if (!plan) return plan;
    if (EncoderFor(plan.Result.Format) == EncoderKind::None) return SoundError::AcmDriver;
    plan.Result.Format = Nearest(plan.Result.Format, settings.Document.Rate);
    return plan;
}

}  // namespace mavrin2::dusoro
