#pragma once
// The standard streams under the names that macOS has for them.

#include_next <stdio.h>

#undef stdin
#undef stdout
#undef stderr

__BEGIN_DECLS
extern FILE* __stdinp;
extern FILE* __stdoutp;
extern FILE* __stderrp;
__END_DECLS

#define stdin __stdinp
#define stdout __stdoutp
#define stderr __stderrp
