#include "standin/user/eyes/DisplayNames.h"

namespace standin::user
{
std::string DisplayNameOf(const std::string& effectName)
{
    struct Row
    {
        const char* begin;
        const char* shown;
    };
    constexpr Row rows[] = {{"Vortan Sheets Object", "Sheets"},
                            {"Vortan Route Object", "Routes"},
                            {"Vortan GEO Object", "GEO"},
                            {"Vortan Solids Object", "Solids"},
                            {"Vortan Copies Object", "Copies"},
                            {"Vortan Cutter Object", "Cutter"},
                            {"Vortan Round Zone", "Round Zone"},
                            {"Vortan Jitter Effector", "Jitter"},
                            {"Vortan Enclosure", "Enclosure"},
                            {"Vortan Placement", "Placement"},
                            {"Vortan Tint Table", "Tint Table"},
                            {"Vortan Dimmer Effector", "Dimmer Effector"},
                            {"Vortan Pulse Effector", "Pulse Effector"},
                            {"Vortan Dots Renderer", "Dots"},
                            {"Vortan Strokes Renderer", "Strokes"},
                            {"Vortan Tiling Renderer", "Tiling"},
                            {"Vortan Rays Renderer", "Rays"},
                            {"Vortan Panes Renderer", "Panes"},
                            {"Vortan Elder Renderer", "Elder"}};
    std::string name = effectName;
    for (const Row& row : rows)
        if (name.rfind(row.begin, 0) == 0)
            name.replace(0, std::char_traits<char>::length(row.begin), row.shown);
    return name;
}
} // namespace standin::user
