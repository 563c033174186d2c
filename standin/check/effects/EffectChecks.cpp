#include "standin/check/effects/EffectChecks.h"

#include "standin/host/bundle/EffectModule.h"

namespace standin::check
{
namespace effects
{
std::vector<Check> Table();
}

const CheckBook& EffectChecks()
{
    static const CheckBook book{"check-effect", "effect", effects::Table(),
                                [](const std::string& file) { (void)EffectModule(file); }};
    return book;
}
} // namespace standin::check
