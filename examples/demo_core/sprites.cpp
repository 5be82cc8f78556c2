#include "sprites.h"

#include <algorithm>
#include <utility>

namespace demo {
namespace {

constexpr std::pair<char, Colour> inks[] = {
    {'k', 0x2b2433},                                   // outline
    {'w', 0xd8a860}, {'W', 0xb07c3a}, {'o', 0x6e4520}, // wicker
    {'h', 0xf2d473}, {'t', 0xc0503c},                  // straw hat and its ribbon
    {'s', 0xf0b890}, {'g', 0x7a4a2a},                  // skin, hair
    {'r', 0xd9534f}, {'R', 0xff8f7a}, {'d', 0x9c2f37}, // reds
    {'b', 0x4a74c9}, {'B', 0x35559a},                  // overalls
    {'y', 0xf7d038}, {'Y', 0xfff3a0}, {'a', 0xc98a1e}, // yellows
    {'l', 0x63b548}, {'L', 0x3c8136},                  // leaves
    {'p', 0xc3d350}, {'P', 0xe8f092}, {'q', 0x8b9c2c}, // pear
    {'v', 0xcfe8ff},                                   // wings
    {'i', 0xf49ac1}, {'x', 0x56505c},                  // petals, an empty heart
};

constexpr std::string_view body[] = {
    "oWwWwWwWwWwWwWwWwo", "oWWWWWWWWWWWWWWWWo", ".oWwWwWwWwWwWwWwo.", ".owWwWwWwWwWwWwWo.",
    "..oWwWwWwWwWwWwo..", "..soooooooooooos..", "..s....hhhh....s..", "..s...hhhhhh...s..",
    "..s...tttttt...s..", "..shhhhhhhhhhhhs..", "..rr.gssssssg.rr..", "...rrgskssksgrr...",
    "...rrr.ssss.rrr...", "....drrssssrrd....", "....drrrrrrrrd....", ".....bbrrrrbb.....",
    ".....bbbbbbbb.....", ".....bbByyBbb.....", ".....bbbbbbbb.....", ".....bbbBBbbb.....",
};

constexpr std::string_view standing[] = {
    ".....bbb..bbb.....", ".....bbb..bbb.....", ".....bbb..bbb.....",
    ".....BBB..BBB.....", "....kkkk..kkkk....", "....kkkk..kkkk....",
};
constexpr std::string_view stepLeft[] = {
    "....bbbb..bbb.....", "....bbb...bbb.....", "...bbb.....bbb....",
    "..kBB......BBB....", "..kkk......kkkk...", "...........kkkk...",
};
constexpr std::string_view stepRight[] = {
    ".....bbb..bbbb....", ".....bbb...bbb....", "....bbb.....bbb...",
    "....BBB......BBk..", "...kkkk......kkk..", "...kkkk...........",
};
constexpr std::string_view jumping[] = {
    "....bbbb..bbbb....", "...bbbb....bbbb...", "...BBB......BBB...",
    "...kkk......kkk...", "..kkk........kkk..", "..................",
};

constexpr std::string_view apple[] = {
    "......o.....", ".....ol.ll..", ".....olll...", "..rrr.orrr..", ".rrRrrrrrrr.", "rrRRrrrrrrrd",
    "rrRrrrrrrrrd", "rrrrrrrrrrrd", "rrrrrrrrrrdd", ".rrrrrrrrdd.", "..rrrrrddd..", "...dd.dd....",
};
constexpr std::string_view pear[] = {
    ".....o......", ".....oll....", ".....ppl....", "....pPpq....", "....pPpq....", "...ppPppq...",
    "..ppPppppq..", ".ppPPppppqq.", ".ppPpppppqq.", ".pppppppqqq.", "..pppppqqq..", "...qqqqqq...",
};
constexpr std::string_view gold[] = {
    ".....yy.....", ".....yY.....", "....yYYy....", "....yYYy....", "yyyyYYYYyyyy", ".ayYYYYYYya.",
    "..ayYYYYya..", "..ayYYYYya..", "..yYYyyYYy..", ".ayYya.yYya.", ".ayya...yya.", ".aa......aa.",
};
constexpr std::string_view heart[] = {
    "..rrr..rrr..", ".rRRrrrrrrr.", "rrRRrrrrrrrd", "rrRrrrrrrrrd", "rrrrrrrrrrrd", ".rrrrrrrrrd.",
    ".rrrrrrrrdd.", "..rrrrrrdd..", "...rrrrdd...", "....rrdd....", ".....rd.....",
};
constexpr std::string_view waspUp[] = {
    "...vvv.vvv..", "...vvv.vvv..", "....vv.vv...", ".kk..vvv....", "kyykkyykkyk.",
    "kykkyykkyykk", "yyykyykkyykk", "kyykyykkyykk", ".kkkkyykkyk.", "....kkkkk...",
};
constexpr std::string_view waspDown[] = {
    "............", "............", "............", ".kk..kkk....", "kyykkyykkyk.",
    "kykkyvvvvykk", "yyykvvvvkykk", "kyykvvvkkykk", ".kkkkvykkyk.", "....kkkkk...",
};

constexpr std::string_view fullHeart[] = {
    ".rr.rr.", "rRrrrrr", "rrrrrrd", ".rrrrd.", "..rrd..", "...d...",
};
constexpr std::string_view emptyHeart[] = {
    ".xx.xx.", "x..x..x", "x.....x", ".x...x.", "..x.x..", "...x...",
};

constexpr std::string_view sprout[] = {".......", ".......", ".......", ".......",
                                       ".......", "..l.l..", "...l...", "...L..."};
constexpr std::string_view stalk[] = {".......", ".......", "...l...", "...L...",
                                      ".l.L...", "..lL.l.", "...Ll..", "...L..."};
constexpr std::string_view bud[] = {".......", "..iii..", "..iii..", "...L...",
                                    ".l.L...", "..lL.l.", "...Ll..", "...L..."};
constexpr std::string_view bloom[] = {".ii.ii.", ".iiyii.", "..yYy..", ".iiyii.",
                                      ".iiLii.", "..lL.l.", "...Ll..", "...L..."};

} // namespace

Colour spriteColour(char code) {
    const auto ink = std::find_if(std::begin(inks), std::end(inks),
                                  [&](const auto& each) { return each.first == code; });
    return ink != std::end(inks) ? ink->second : 0;
}

Sprite gardenerBody() { return body; }

Sprite gardenerLegs(Legs legs) {
    constexpr std::array<Sprite, 4> pairs{standing, stepLeft, stepRight, jumping};
    return pairs[static_cast<std::size_t>(legs)];
}

Sprite itemSprite(Kind kind, bool wingsUp) {
    const std::array<Sprite, static_cast<std::size_t>(Kind::count)> items{
        Sprite{}, apple, pear, gold, heart, wingsUp ? Sprite{waspUp} : Sprite{waspDown}};
    return items[static_cast<std::size_t>(kind)];
}

Sprite smallHeart(bool full) { return full ? Sprite{fullHeart} : Sprite{emptyHeart}; }

Sprite flower(std::int32_t stage) {
    constexpr std::array<Sprite, 4> stages{sprout, stalk, bud, bloom};
    return stages[static_cast<std::size_t>(std::clamp(stage, 0, 3))];
}

} // namespace demo
