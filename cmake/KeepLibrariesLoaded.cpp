// For sanitized programs only: a library that is unloaded before the leak report cannot be named in
// it, nor in what leaves the leaks of others out of it.
extern "C" __attribute__((visibility("default"))) int dlclose(void *)
{
    return 0;
}
