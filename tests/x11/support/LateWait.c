/* Loaded into an X server: it waits for its clients a fifth of a second later than it would, as a server does
   that the system has put aside for others at that moment. A signal that comes in between does not shorten
   it. */

#include <dlfcn.h>
#include <errno.h>
#include <stddef.h>
#include <sys/epoll.h>
#include <time.h>

typedef int (*Wait)(int, struct epoll_event*, int, int);

__attribute__((visibility("default"))) int epoll_wait(int set, struct epoll_event* events, int most,
                                                      int timeout)
{
    struct timespec left = {0, 200000000};
    Wait wait = NULL;
    *(void**)&wait = dlsym(RTLD_NEXT, "epoll_wait");
    while (nanosleep(&left, &left) != 0 && errno == EINTR)
    {
    }
    return wait(set, events, most, timeout);
}
