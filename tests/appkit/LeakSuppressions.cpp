// Objective-C objects that GNUstep makes once and keeps are no finding of the leak check. The objects of
// the code under test are counted by the tests themselves.

extern "C" const char* __lsan_default_suppressions();

extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libgnustep\n"
           "leak:libobjc\n"
           "leak:libfontconfig\n";
}
