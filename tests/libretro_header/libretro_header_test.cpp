#include <gtest/gtest.h>

#include "header_table.h"

namespace {

TEST(LibretroHeader, EqualsThePublishedOne) {
#ifdef VELMORA_HAVE_PUBLISHED_LIBRETRO
    const HeaderTable own = velmoraHeaderTable();
    EXPECT_GT(own.size(), 200U) << "too little was found in the header to be compared";
    HeaderTable published = publishedHeaderTable();
    for (const auto& [name, value] : own)
        EXPECT_EQ(value, published[name]) << name;
#else
    GTEST_SKIP() << "the published libretro.h is not installed (Debian: retroarch-dev)";
#endif
}

} // namespace
