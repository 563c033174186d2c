#include "standin/check/Check.h"

#include "standin/host/bundle/Bundle.h"

#include <algorithm>

namespace standin::check
{
namespace bundles
{
std::vector<Check> Table();
}

const CheckBook& BundleChecks()
{
    static const CheckBook book{"check", "bundle", bundles::Table(),
                                [](const std::string& file) { (void)Bundle(file); }};
    return book;
}

const Check* CheckBook::Find(const std::string& id) const
{
    const auto found =
        std::find_if(checks.begin(), checks.end(), [&](const Check& check) { return check.id == id; });
    return found == checks.end() ? nullptr : &*found;
}
} // namespace standin::check
