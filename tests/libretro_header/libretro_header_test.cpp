#include <fstream>
#include <regex>
#include <sstream>

#include <gtest/gtest.h>

#include "header_table.h"

namespace {

std::string headerWithoutComments() {
    std::ostringstream text;
    text << std::ifstream(VELMORA_LIBRETRO_HEADER).rdbuf();
    return std::regex_replace(text.str(), std::regex(R"(/\*[^*]*\*+([^/*][^*]*\*+)*/)"), "");
}

// A name added to the header but not to the list would never be compared.
TEST(LibretroHeader, EveryNameIsInTheTable) {
    const HeaderTable table = velmoraHeaderTable();
    const std::string header = headerWithoutComments();
    ASSERT_NE(header.find("retro_game_info"), std::string::npos);

    const std::regex number(R"(#define (RETRO_(?!API\b|CALLCONV)\w+)|\b(RETRO_\w+) =)");
    for (std::sregex_iterator it(header.begin(), header.end(), number), end; it != end; ++it) {
        const std::string name = (*it)[1].matched ? (*it)[1] : (*it)[2];
        EXPECT_EQ(table.count(name), 1U) << name;
    }

    const std::regex record(R"(\n(struct \w+) \{([^}]*)\})");
    const std::regex member(R"((\w+)(\[\w+\])?;)");
    for (std::sregex_iterator it(header.begin(), header.end(), record), end; it != end; ++it) {
        const std::string name = (*it)[1].str().substr(7), body = (*it)[2];
        EXPECT_EQ(table.count("sizeof " + name), 1U) << name;
        for (std::sregex_iterator field(body.begin(), body.end(), member); field != end; ++field)
            EXPECT_EQ(table.count(name + "." + (*field)[1].str()), 1U) << name << (*field)[1];
    }
}

TEST(LibretroHeader, EqualsThePublishedOne) {
#ifdef VELMORA_HAVE_PUBLISHED_LIBRETRO
    HeaderTable published = publishedHeaderTable();
    for (const auto& [name, value] : velmoraHeaderTable())
        EXPECT_EQ(value, published[name]) << name;
#else
    GTEST_SKIP() << "the published libretro.h is not installed (Debian: retroarch-dev)";
#endif
}

} // namespace
