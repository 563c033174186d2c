#include "tests/standin/Client.h"

#include <stdexcept>

namespace standin
{
namespace
{
struct Basic
{
    A_Err (*acquire)(const char*, A_long, const void**);
    A_Err (*release)(const char*, A_long);
};

const Basic& basicOf(Host& host) { return *static_cast<const Basic*>(host.BasicSuite()); }

constexpr A_u_long hidden = 2;
} // namespace

Client::~Client()
{
    for (const Held& held : acquired)
        (void)Release(held.name, held.version);
}

A_Err Client::Acquire(const char* name, A_long version, const void** table)
{
    return basicOf(host).acquire(name, version, table);
}

A_Err Client::Release(const char* name, A_long version) { return basicOf(host).release(name, version); }

const void* Client::TableOf(const char* suite, A_long version)
{
    for (const Held& held : acquired)
        if (std::string(held.name) == suite && held.version == version)
            return held.table;
    const void* table = nullptr;
    if (Acquire(suite, version, &table) != errNone || table == nullptr)
        throw std::runtime_error(std::string("no suite ") + suite);
    acquired.push_back({suite, version, table});
    return table;
}

A_long Client::NumEffects(void* layer)
{
    A_long count = -1;
    error = Call(effectSuite, 1, 0, layer, &count);
    return count;
}

void* Client::EffectAt(void* layer, A_long index)
{
    void* effect = nullptr;
    error = Call(effectSuite, 1, 1, id, layer, index, &effect);
    return effect;
}

void* Client::StreamOf(void* effect, A_long parameter)
{
    void* stream = nullptr;
    error = Call(streamSuite, 4, 4, id, effect, parameter, &stream);
    return stream;
}

void* Client::ParentOf(void* stream)
{
    void* parent = nullptr;
    error = Call(dynamicStreamSuite, 2, 15, id, stream, &parent);
    return parent;
}

void* Client::Apply(void* layer, A_long key)
{
    void* effect = nullptr;
    error = Call(effectSuite, 1, 9, id, layer, key, &effect);
    return effect;
}

A_Err Client::Reorder(void* effect, A_long index) { return Call(effectSuite, 1, 6, effect, index); }

A_Err Client::Delete(void* effect) { return Call(effectSuite, 3, 10, effect); }

A_Err Client::DisposeEffect(void* effect) { return Call(effectSuite, 1, 8, effect); }

A_Err Client::DisposeStream(void* stream) { return Call(streamSuite, 7, 7, stream); }

std::string Client::NameOf(void* stream)
{
    char name[128] = "";
    error = Call(streamSuite, 4, 7, stream, A_Boolean{1}, static_cast<char*>(name));
    return name;
}

A_Err Client::Rename(void* stream, const char* name) { return Call(dynamicStreamSuite, 2, 11, stream, name); }

A_Err Client::SetHidden(void* stream, Switch undoable, Switch on)
{
    return Call(dynamicStreamSuite, 2, 5, stream, hidden, static_cast<A_Boolean>(undoable),
                static_cast<A_Boolean>(on));
}

A_u_long Client::StreamFlags(void* stream)
{
    A_u_long flags = 0;
    error = Call(dynamicStreamSuite, 2, 4, stream, &flags);
    return flags;
}

A_long Client::Flags(void* effect)
{
    A_long flags = 0;
    error = Call(effectSuite, 1, 4, effect, &flags);
    return flags;
}

A_Err Client::SetActive(void* effect, Switch on)
{
    return Call(effectSuite, 1, 5, effect, A_long{1}, static_cast<A_long>(on));
}

A_Err Client::StartUndo(const char* name) { return Call(utilitySuite, 3, 5, name); }

A_Err Client::EndUndo() { return Call(utilitySuite, 3, 6); }

void* Client::ActiveItem()
{
    void* item = nullptr;
    error = Call(itemSuite, 3, 1, &item);
    return item;
}

void* Client::ActiveLayer()
{
    void* layer = nullptr;
    error = Call(layerSuite, 5, 2, &layer);
    return layer;
}
} // namespace standin
