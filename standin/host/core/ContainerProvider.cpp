#include "standin/host/core/ContainerProvider.h"

namespace standin
{
void* ContainerProvider::MakeContainer(const std::string&)
{
    constexpr std::size_t firstView = 0x10000;
    return reinterpret_cast<void*>(firstView + ++made); // NOLINT: an id that is never dereferenced
}

void ContainerProvider::DestroyContainer(void*) {}

void ContainerProvider::ShowContainer(void*, Visibility) {}
} // namespace standin
