#pragma once
// The C library whose headers stand for Apple's shows what goes beyond C, and what needs threads and timers,
// only where it is told that there are such things. Apple's shows it always.

#define _GNU_SOURCE 1
#define _POSIX_THREADS 1
#define _POSIX_TIMERS 1
#define _UNIX98_THREAD_MUTEX_ATTRIBUTES 1

#include_next <sys/features.h>
