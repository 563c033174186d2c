#include "standin/effect_checks/EffectChecks.h"

#include "standin/session/EffectModule.h"

namespace standin
{
namespace effect_checks
{
std::vector<Check> Table();
}

const CheckBook& EffectChecks()
{
    static const CheckBook book{"check-effect", "effect", effect_checks::Table(),
                                [](const std::string& file) { (void)EffectModule(file); }};
    return book;
}
} // namespace standin
