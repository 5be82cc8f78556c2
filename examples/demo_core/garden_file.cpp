#include "garden_file.h"

#include <algorithm>
#include <charconv>

#include "hash.h"
#include "text_settings.h"

namespace demo {
namespace {

void setTitle(Garden& garden, std::string_view title) {
    garden.titleText = {};
    std::copy_n(title.begin(), std::min(title.size(), garden.titleText.size() - 1),
                garden.titleText.begin());
}

} // namespace

Garden readGarden(std::span<const std::byte> file) {
    Garden garden;
    setTitle(garden, "A garden without a name");
    garden.id = garden.seed = hashOf(file);
    forEachSetting(file, [&](std::string_view key, std::string_view value) {
        if (key == "title" && !value.empty())
            setTitle(garden, value);
        if (key == "seed")
            std::from_chars(value.data(), value.data() + value.size(), garden.seed);
    });
    return garden;
}

} // namespace demo
