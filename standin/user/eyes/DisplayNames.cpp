#include "standin/user/eyes/DisplayNames.h"

#include "sdk/VortanFamily.h"

#include <cstring>

namespace standin::user
{
std::string DisplayNameOf(const std::string& effectName)
{
    std::string name = effectName;
    for (const VortanRowName& row : VORTAN_ROW_NAMES)
        if (name.rfind(row.defaultName, 0) == 0)
            name.replace(0, std::strlen(row.defaultName), row.rowName);
    return name;
}
} // namespace standin::user
