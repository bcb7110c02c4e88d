#pragma once
// The program's colour tables, as plain data: the palette of five families, the series
// table that charts take their colours from, and the pie table. Colour numbers are the
// Windows form red + 256 * green + 65536 * blue.
#include <QColor>
#include <array>
#include <vector>

namespace ReportColours {

struct Rgb {
    int red;
    int green;
    int blue;
    constexpr int number() const { return red + 256 * green + 65536 * blue; }
    QColor toColor() const { return QColor(red, green, blue); }
};

// Five families of six, light to dark: Indigo, pink, Coral, Turquoise, Grey.
inline constexpr std::array<Rgb, 30> Palette{{
    {239, 229, 247}, {212, 191, 236}, {153, 108, 213}, {113, 45, 194},  {85, 20, 180},   {50, 0, 138},
    {255, 228, 255}, {255, 183, 254}, {255, 128, 255}, {220, 0, 224},   {178, 2, 214},   {126, 0, 145},
    {255, 236, 238}, {255, 208, 210}, {255, 122, 113}, {255, 90, 75},   {228, 56, 40},   {186, 34, 18},
    {224, 248, 252}, {180, 236, 248}, {75, 210, 236},  {30, 200, 230},  {2, 143, 178},   {0, 86, 110},
    {247, 247, 247}, {240, 240, 240}, {217, 217, 217}, {170, 170, 170}, {107, 107, 107}, {42, 42, 42},
}};

// Ordered so that neighbouring series stay apart; the first four are the cost types.
inline constexpr std::array<Rgb, 20> Series{{
    {113, 45, 194}, {228, 56, 40},   {30, 200, 230},  {170, 170, 170}, {255, 128, 255},
    {85, 20, 180},  {244, 122, 113}, {180, 236, 248}, {50, 0, 138},    {178, 2, 214},
    {255, 90, 75},  {0, 86, 110},    {153, 108, 213}, {255, 183, 254}, {186, 34, 18},
    {2, 143, 178},  {212, 191, 236}, {255, 208, 210}, {75, 210, 236},  {126, 0, 145},
}};

// Entry 20 is the palette's second grey, never its lightest; the greys here are not the
// palette's (219 rather than 217).
inline constexpr std::array<Rgb, 24> Pie{{
    {239, 229, 247}, {212, 191, 236}, {153, 108, 213}, {113, 45, 194},  {255, 228, 255}, {255, 183, 254},
    {255, 128, 255}, {220, 0, 224},   {178, 2, 214},   {255, 236, 238}, {255, 208, 210}, {255, 122, 113},
    {255, 90, 75},   {228, 56, 40},   {186, 34, 18},   {224, 248, 252}, {180, 236, 248}, {75, 210, 236},
    {30, 200, 230},  {2, 143, 178},   {240, 240, 240}, {219, 219, 219}, {170, 170, 170}, {107, 107, 107},
}};

enum class Family { Indigo = 0, Pink = 6, Coral = 12, Turquoise = 18, Grey = 24 };

// Member 1 is the lightest of the family, 6 the darkest.
constexpr Rgb paletteMember(Family family, int member) {
    return Palette.at(int(family) + member - 1);
}

// A fall in the trend grids, and a rise (pure red, colour number 255).
inline constexpr Rgb Decrease{11, 222, 69};
inline constexpr Rgb Increase{255, 0, 0};

// The colours a chart's series take: the pie table for a pie, else the series table.
// Series beyond the table keep the chart's own colours (an invalid QColor).
inline std::vector<QColor> graphColours(bool pie, int seriesCount) {
    std::vector<QColor> out;
    for (int i = 0; i < seriesCount; ++i) {
        if (pie)
            out.push_back(i < int(Pie.size()) ? Pie[size_t(i)].toColor() : QColor());
        else
            out.push_back(i < int(Series.size()) ? Series[size_t(i)].toColor() : QColor());
    }
    return out;
}

} // namespace ReportColours
