#pragma once
// The program's palette: five families of six shades from light to dark, a table of
// chart series colours that keeps neighbouring series apart, and a table for pie
// slices. A colour is a number red + 256 * green + 65536 * blue.
#include <QColor>
#include <array>
#include <cstdint>

using ColourNumber = std::uint32_t;

struct ColourRgb {
    int red = 0;
    int green = 0;
    int blue = 0;

    constexpr ColourNumber number() const { return ColourNumber(red + 256 * green + 65536 * blue); }
    QColor toQColor() const { return QColor(red, green, blue); }
    constexpr bool operator==(const ColourRgb&) const = default;
};

constexpr ColourNumber RGB(int red, int green, int blue) {
    return ColourRgb{red, green, blue}.number();
}
QColor qColor(ColourNumber colour);
ColourRgb channels(ColourNumber colour);

inline constexpr ColourNumber White = 16777215;
// Drawn where a figure went down.
inline constexpr ColourNumber DecreaseColour = RGB(11, 222, 69);
// The brand colour of buttons and strips.
inline constexpr ColourNumber BrandColour = RGB(85, 20, 180);

class cColours {
public:
    static constexpr int PaletteSize = 30;
    static constexpr int SeriesTableSize = 20;
    static constexpr int PieTableSize = 24;
    static constexpr int FamilySize = 6;

    cColours();

    ColourNumber DarkButtonColour() const { return Grey(3); }
    ColourNumber ProjectNameColour() const { return Coral(6); }
    ColourNumber GridSortColour() const { return Turquoise(1); }

    // member 1 (lightest) to 6 (darkest); any other member throws std::out_of_range.
    ColourNumber Indigo(int member) const { return familyMember(0, member); }
    ColourNumber pink(int member) const { return familyMember(6, member); }
    ColourNumber Coral(int member) const { return familyMember(12, member); }
    ColourNumber Turquoise(int member) const { return familyMember(18, member); }
    ColourNumber Grey(int member) const { return familyMember(24, member); }

    ColourNumber CoreColour_Indigo() const { return RGB(85, 20, 180); }
    ColourNumber CoreColour_Coral() const { return RGB(255, 90, 75); }
    ColourNumber CoreColour_Turquoise() const { return RGB(30, 200, 230); }
    ColourNumber GridTotalsColour() const { return RGB(180, 236, 248); }
    // The deviation colours of the budget reports and their colour key.
    ColourNumber OverBudgetColour() const { return CoreColour_Coral(); }
    ColourNumber UnderBudgetColour() const { return RGB(0, 0, 255); }

    // The palette by index 0 to 29; any other index throws std::out_of_range.
    ColourNumber Colour(int index) const { return paletteEntry(index).number(); }
    int Red(int index) const { return paletteEntry(index).red; }
    int Green(int index) const { return paletteEntry(index).green; }
    int Blue(int index) const { return paletteEntry(index).blue; }

    // The four cost types are the first four series colours.
    ColourNumber Usage() const { return series_[0].number(); }
    ColourNumber Recurring() const { return series_[1].number(); }
    ColourNumber Adjustments() const { return series_[2].number(); }
    ColourNumber OneOff() const { return series_[3].number(); }

    // Index checked; std::out_of_range outside the table.
    ColourRgb paletteEntry(int index) const;
    ColourRgb seriesEntry(int index) const;
    ColourRgb pieEntry(int index) const;

private:
    ColourNumber familyMember(int familyStart, int member) const;

    std::array<ColourRgb, PaletteSize> palette_{};
    std::array<ColourRgb, SeriesTableSize> series_{};
    std::array<ColourRgb, PieTableSize> pie_{};
};
