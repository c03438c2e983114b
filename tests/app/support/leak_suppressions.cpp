// fontconfig keeps its caches until the process ends and never frees them; the
// leak checker of sanitizer builds would fail every test that draws text.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig.so\n";
}
