#include "companions/dusoro/sound/format_text.h"

namespace mavrin2::dusoro {
namespace {

std::string Text(std::string_view name, std::int32_t rate, const std::string& detail,
                 std::int32_t channels) {
    std::string text = std::string(name) + " " + std::to_string(rate) + " Hz; " + detail;
    if (channels == 1) return text + "mono";
    if (channels == 2) return text + "stereo";
    return text + std::to_string(channels) + " channels";
}

}  // namespace

std::string TextWithBits(std::string_view name, std::int32_t rate, std::int32_t bits,
                         std::int32_t channels) {
    return Text(name, rate, std::to_string(bits) + " bit; ", channels);
}

std::string TextWithBitRate(std::string_view name, std::int32_t rate, std::int64_t bitRate,
                            std::int32_t channels) {
    const std::int64_t kilobits = bitRate / 1000 + (bitRate % 1000 >= 500 ? 1 : 0);
    return Text(name, rate, kilobits > 0 ? std::to_string(kilobits) + " kbit/s; " : "", channels);
}

}  // namespace mavrin2::dusoro
