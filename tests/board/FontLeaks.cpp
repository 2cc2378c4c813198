// Fontconfig keeps its tables for the life of the process and does not free them all, which the leak check would tell
// of.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig.so"; }
