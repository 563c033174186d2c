#pragma once
// What the tree uses of the system's queues, as their documentation declares it.

struct dispatch_queue_s;
using dispatch_queue_t = dispatch_queue_s*;
using dispatch_function_t = void (*)(void*);

extern "C" dispatch_queue_t dispatch_get_main_queue();
extern "C" void dispatch_async_f(dispatch_queue_t, void* context, dispatch_function_t);
