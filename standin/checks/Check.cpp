#include "standin/checks/Check.h"

#include "standin/session/Bundle.h"

#include <algorithm>

namespace standin
{
namespace checks
{
std::vector<Check> Table();
}

const CheckBook& BundleChecks()
{
    static const CheckBook book{"check", "bundle", checks::Table(),
                                [](const std::string& file) { (void)Bundle(file); }};
    return book;
}

const Check* CheckBook::Find(const std::string& id) const
{
    const auto found =
        std::find_if(checks.begin(), checks.end(), [&](const Check& check) { return check.id == id; });
    return found == checks.end() ? nullptr : &*found;
}
} // namespace standin
