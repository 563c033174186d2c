// Objective-C objects that GNUstep creates once and keeps do not count as leaks. The objects of
// the code under test are counted by the tests themselves.

extern "C" const char* __lsan_default_suppressions();

extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libgnustep\n"
           "leak:libobjc\n"
           "leak:libfontconfig\n";
}
