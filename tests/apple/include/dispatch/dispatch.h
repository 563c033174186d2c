#pragma once
// The queue of the main thread, whose functions the run loop calls.

#include <sys/cdefs.h>

typedef struct dispatch_queue_s* dispatch_queue_t;
typedef void (*dispatch_function_t)(void* context);

__BEGIN_DECLS
extern struct dispatch_queue_s _dispatch_main_q;
void dispatch_async_f(dispatch_queue_t queue, void* context, dispatch_function_t work);
__END_DECLS

static inline dispatch_queue_t dispatch_get_main_queue(void) { return &_dispatch_main_q; }
