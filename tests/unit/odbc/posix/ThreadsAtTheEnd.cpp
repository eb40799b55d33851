// A thread that was given up with its hanging driver may still run when the program ends. What the system's
// loader keeps for it, the text of its last dlerror, then counts as lost; nothing of the project's own is
// left out.

extern "C" const char* __lsan_default_suppressions();

extern "C" const char* __lsan_default_suppressions() {
    return "leak:_dlerror_run\n";
}
