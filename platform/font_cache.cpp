#include "platform/font_cache.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace mavrin2::platform {
namespace {

// A control has two scales; a host that animates a size must not fill the memory with fonts.
constexpr std::size_t MostFonts = 8;

class FontCache final : public FontLoader {
public:
    explicit FontCache(std::function<std::shared_ptr<const Font>(const FontDescription&)> load)
        : load_(std::move(load)) {}

    std::shared_ptr<const Font> Load(const FontDescription& description) override {
        const auto known = std::find_if(fonts_.begin(), fonts_.end(), [&](const Entry& entry) {
            return entry.first == description;
        });
        if (known != fonts_.end()) {
            std::rotate(known, known + 1, fonts_.end());
        } else {
            fonts_.emplace_back(description, load_(description));
            if (fonts_.size() > MostFonts) fonts_.erase(fonts_.begin());
        }
        return fonts_.back().second;
    }

private:
    using Entry = std::pair<FontDescription, std::shared_ptr<const Font>>;

    std::function<std::shared_ptr<const Font>(const FontDescription&)> load_;
    std::vector<Entry> fonts_;  // the one asked for last at the end
};

}  // namespace

std::shared_ptr<FontLoader> CachedFonts(
    std::function<std::shared_ptr<const Font>(const FontDescription&)> load) {
    return std::make_shared<FontCache>(std::move(load));
}

}  // namespace mavrin2::platform
