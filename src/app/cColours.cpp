#include "app/cColours.h"

#include <stdexcept>
#include <string>

QColor qColor(ColourNumber colour) {
    const ColourRgb c = channels(colour);
    return QColor(c.red, c.green, c.blue);
}

ColourRgb channels(ColourNumber colour) {
    return {int(colour & 0xFF), int((colour >> 8) & 0xFF), int((colour >> 16) & 0xFF)};
}

cColours::cColours()
    : palette_{{
          {239, 229, 247}, {212, 191, 236}, {153, 108, 213}, {113, 45, 194},  {85, 20, 180},   {50, 0, 138},
          {255, 228, 255}, {255, 183, 254}, {255, 128, 255}, {220, 0, 224},   {178, 2, 214},   {126, 0, 145},
          {255, 236, 238}, {255, 208, 210}, {255, 122, 113}, {255, 90, 75},   {228, 56, 40},   {186, 34, 18},
          {224, 248, 252}, {180, 236, 248}, {75, 210, 236},  {30, 200, 230},  {2, 143, 178},   {0, 86, 110},
          {247, 247, 247}, {240, 240, 240}, {217, 217, 217}, {170, 170, 170}, {107, 107, 107}, {42, 42, 42},
      }}
    , series_{{
          {113, 45, 194}, {228, 56, 40},   {30, 200, 230},  {170, 170, 170}, {255, 128, 255},
          {85, 20, 180},  {244, 122, 113}, {180, 236, 248}, {50, 0, 138},    {178, 2, 214},
          {255, 90, 75},  {0, 86, 110},    {153, 108, 213}, {255, 183, 254}, {186, 34, 18},
          {2, 143, 178},  {212, 191, 236}, {255, 208, 210}, {75, 210, 236},  {126, 0, 145},
      }}
    , pie_{{
          {239, 229, 247}, {212, 191, 236}, {153, 108, 213}, {113, 45, 194},  {255, 228, 255},
          {255, 183, 254}, {255, 128, 255}, {220, 0, 224},   {178, 2, 214},   {255, 236, 238},
          {255, 208, 210}, {255, 122, 113}, {255, 90, 75},   {228, 56, 40},   {186, 34, 18},
          {224, 248, 252}, {180, 236, 248}, {75, 210, 236},  {30, 200, 230},  {2, 143, 178},
          {247, 247, 247}, {219, 219, 219}, {170, 170, 170}, {107, 107, 107},
      }} {
    // The lightest grey is written over at once: it would vanish against a white page.
    pie_[20] = {240, 240, 240};
}

namespace {

template <typename Table> ColourRgb entryOf(const Table& table, int index, const char* what) {
    if (index < 0 || index >= int(table.size()))
        throw std::out_of_range(std::string(what) + " index " + std::to_string(index) +
                                " is outside the table");
    return table[std::size_t(index)];
}

} // namespace

ColourRgb cColours::paletteEntry(int index) const {
    return entryOf(palette_, index, "palette");
}

ColourRgb cColours::seriesEntry(int index) const {
    return entryOf(series_, index, "series colour");
}

ColourRgb cColours::pieEntry(int index) const {
    return entryOf(pie_, index, "pie colour");
}

ColourNumber cColours::familyMember(int familyStart, int member) const {
    if (member < 1 || member > FamilySize)
        throw std::out_of_range("colour member " + std::to_string(member) + " is outside 1 to 6");
    return palette_[std::size_t(familyStart + member - 1)].number();
}
