#include "core_host/host_test.h"

namespace velmora::test {

class CoreOptions : public HostTest {
protected:
    void SetUp() override { ASSERT_TRUE(host.loadCore(core.path)); }

    // What the core reads back, "-" for nothing.
    std::string read(const char* key) {
        retro_variable variable = {key, "untouched"};
        const bool found = core->environment(RETRO_ENVIRONMENT_GET_VARIABLE, &variable);
        EXPECT_EQ(found, variable.value != nullptr);
        return variable.value ? variable.value : "-";
    }
};

TEST_F(CoreOptions, TakesTheFirstLegacyValue) {
    const std::pair<const char*, const char*> rows[] = {
        {"ntsc|pal", "ntsc"}, {"a; b; c|d", "b; c"}, {"Speed; \t fast |slow", "fast "},
        {"Speed;|slow", "-"}, {"Speed; ", "-"},      {nullptr, "-"},
    };
    for (const auto& [value, expected] : rows) {
        ASSERT_TRUE(host.loadCore(core.path));
        retro_variable list[] = {{"key", value}, {"next", "x; y"}, {nullptr, nullptr}};
        EXPECT_TRUE(core->environment(RETRO_ENVIRONMENT_SET_VARIABLES, list));
        EXPECT_EQ(read("key"), expected);
        EXPECT_EQ(read("next"), "y");
    }
    EXPECT_EQ(read(nullptr), "-");
}

template <class Definition>
std::vector<Definition> definitions() {
    // Key, default, first value.
    const char* const rows[][3] = {{"first", nullptr, "on"},
                                   {"default", "early", "on"},
                                   {"default", "off", "on"},
                                   {"empty", "", "on"},
                                   {"none", nullptr, nullptr},
                                   {"", "off", "on"},
                                   {}};
    std::vector<Definition> list(std::size(rows));
    for (std::size_t i = 0; i < list.size(); ++i) {
        list[i].key = rows[i][0];
        list[i].default_value = rows[i][1];
        list[i].values[0].value = rows[i][2];
    }
    return list;
}

TEST_F(CoreOptions, TakesTheDefaultOfEveryGeneration) {
    auto one = definitions<retro_core_option_definition>();
    auto two = definitions<retro_core_option_v2_definition>();
    retro_core_options_intl intl = {one.data(), nullptr};
    retro_core_options_v2 v2 = {nullptr, two.data()};
    retro_core_options_v2_intl v2intl = {&v2, nullptr};
    const struct {
        unsigned command;
        void* data;
        bool answer;
    } rows[] = {{RETRO_ENVIRONMENT_SET_CORE_OPTIONS, one.data(), true},
                {RETRO_ENVIRONMENT_SET_CORE_OPTIONS_INTL, &intl, true},
                {RETRO_ENVIRONMENT_SET_CORE_OPTIONS_V2, &v2, false},
                {RETRO_ENVIRONMENT_SET_CORE_OPTIONS_V2_INTL, &v2intl, false}};
    for (const auto& row : rows) {
        ASSERT_TRUE(host.loadCore(core.path));
        EXPECT_EQ(read("first"), "-") << row.command;
        EXPECT_EQ(core->environment(row.command, row.data), row.answer);
        EXPECT_EQ(read("first"), "on") << row.command;
        EXPECT_EQ(read("default"), "off");
        EXPECT_EQ(read("empty"), "-");
        EXPECT_EQ(read("none"), "-");
        EXPECT_EQ(read(""), "-");
    }
}

TEST_F(CoreOptions, KeepsATextInPlaceWhileOthersCome) {
    std::vector<std::string> keys;
    for (int i = 0; i < 100; ++i)
        keys.push_back(std::to_string(i));
    retro_variable first = {keys[0].c_str(), nullptr};
    for (const auto& key : keys) {
        retro_variable list[] = {{key.c_str(), "d; value"}, {nullptr, nullptr}};
        ASSERT_TRUE(core->environment(RETRO_ENVIRONMENT_SET_VARIABLES, list));
        ASSERT_TRUE(first.value || core->environment(RETRO_ENVIRONMENT_GET_VARIABLE, &first));
    }
    EXPECT_STREQ(first.value, "value");
    EXPECT_EQ(read(keys.back().c_str()), "value");
}

} // namespace velmora::test
