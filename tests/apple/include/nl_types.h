#pragma once
// Message catalogues, which the C++ library's headers name.

#include <sys/cdefs.h>

typedef void* nl_catd;

#define NL_CAT_LOCALE 1

__BEGIN_DECLS
nl_catd catopen(const char* name, int flag);
char* catgets(nl_catd catalogue, int set, int message, const char* fallback);
int catclose(nl_catd catalogue);
__END_DECLS
