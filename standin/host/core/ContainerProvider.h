#pragma once
// Where the native views of panels come from.

#include <cstddef>
#include <string>

namespace standin
{
enum class Visibility
{
    hidden,
    visible
};

/// A provider outlives the host that uses it. The basic one makes views that only differ from each other,
/// which is enough where nothing is drawn.
class ContainerProvider
{
public:
    virtual ~ContainerProvider() = default;
    virtual void* MakeContainer(const std::string& panelName);
    virtual void DestroyContainer(void* container);
    virtual void ShowContainer(void* container, Visibility visibility);

private:
    std::size_t made = 0;
};
} // namespace standin
