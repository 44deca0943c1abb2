// What the leak checker is not to report.

/// The font catalogue keeps its settings until the process ends, in a form that the checker cannot
/// follow.
extern "C" const char* __lsan_default_suppressions();  // NOLINT(bugprone-reserved-identifier)
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig\n";
}
