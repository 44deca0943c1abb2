// Preloaded into a program, lets one of its calls of the system or of the allocator fail.
//
//   FAULTY_CALL    the name of the function, as below
//   FAULTY_NUMBER  which of its calls fails, from 1 on; 0: none
//   FAULTY_REPORT  a file that gets the number of calls, if it is set
//   FAULTY_NAMES   if it is set, files without a name are refused as old file systems do
//
// Calls count from the beginning of main() to its end. Those of libraries that cannot tell do not:
// the font catalogue and the colour profiles crash without memory, and the former takes settings
// that cannot be read for none; the shaper leaves out what it has no memory for, and the clipper
// says no more than that it failed.

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>

namespace {

bool isActive = false;
const char* call = nullptr;
long wanted = 0;
std::atomic<long> calls = 0;
bool refusesNameless = false;

/// The C library asks for memory on behalf of others, the font catalogue among them. A library of
/// C++ does so by `operator new`, which is asked for the caller of its own.
bool isSpared(const char* name, const void* caller) {
    Dl_info info{};
    if (::dladdr(caller, &info) == 0 || info.dli_fname == nullptr)
        return false;
    const auto isFrom = [&](const char* library) {
        return std::strstr(info.dli_fname, library) != nullptr;
    };
    const bool isMemory = std::strcmp(name, "malloc") == 0;
    return isFrom("/libfontconfig.") ||
           (isMemory && (isFrom("/libexpat.") || isFrom("/libc.") || isFrom("/libharfbuzz") ||
                         isFrom("/libpolyclipping.") || isFrom("/liblcms2.")));
}

/// Whether this call of `name` is the one that fails; `errno` says why.
bool fails(const char* name, int error, const void* caller) {
    if (!isActive || call == nullptr || std::strcmp(name, call) != 0 || isSpared(name, caller) ||
        ++calls != wanted)
        return false;
    errno = error;
    return true;
}

template <class Function>
Function* original(const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

void readRequest() {
    const char* number = std::getenv("FAULTY_NUMBER");
    call = std::getenv("FAULTY_CALL");
    wanted = number != nullptr ? std::atol(number) : 0;
    refusesNameless = std::getenv("FAULTY_NAMES") != nullptr;
}

void report() {
    isActive = false;
    const char* name = std::getenv("FAULTY_REPORT");
    FILE* file = name != nullptr ? std::fopen(name, "w") : nullptr;
    if (file == nullptr)
        return;
    std::fprintf(file, "%ld\n", calls.load());
    std::fclose(file);
}

using Main = int(int, char**, char**);
Main* programMain = nullptr;

int countedMain(int count, char** arguments, char** environment) {
    readRequest();
    isActive = true;
    const int code = programMain(count, arguments, environment);
    report();
    return code;
}

int openFor(const void* caller, const char* path, int flags, mode_t mode) {
    static const auto open = original<int(const char*, int, ...)>("open");
    if (refusesNameless && (flags & O_TMPFILE) == O_TMPFILE) {
        errno = EOPNOTSUPP;
        return -1;
    }
    return fails("open", EMFILE, caller) ? -1 : open(path, flags, mode);
}

mode_t modeOf(int flags, std::va_list& rest) {
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(rest, mode_t) : 0;
}

}  // namespace

#define CALLER __builtin_return_address(0)

#pragma GCC visibility push(default)
extern "C" {

int __libc_start_main(Main* main, int count, char** arguments, void (*begin)(), void (*end)(),
                      void (*loader)(), void* stack) {
    programMain = main;
    using Start = int(Main*, int, char**, void (*)(), void (*)(), void (*)(), void*);
    return original<Start>("__libc_start_main")(countedMain, count, arguments, begin, end, loader,
                                                stack);
}

int open(const char* path, int flags, ...) {
    std::va_list rest;
    va_start(rest, flags);
    const mode_t mode = modeOf(flags, rest);
    va_end(rest);
    return openFor(CALLER, path, flags, mode);
}
int open64(const char* path, int flags, ...) {
    std::va_list rest;
    va_start(rest, flags);
    const mode_t mode = modeOf(flags, rest);
    va_end(rest);
    return openFor(CALLER, path, flags, mode);
}

#define FAULTY(function, type, error, parameters, arguments)                             \
    type function parameters {                                                           \
        static const auto next = original<type parameters>(#function);                   \
        return fails(#function, error, CALLER) ? static_cast<type>(-1) : next arguments; \
    }

FAULTY(read, ssize_t, EIO, (int file, void* bytes, size_t size), (file, bytes, size))
FAULTY(pread, ssize_t, EIO, (int file, void* bytes, size_t size, off_t at), (file, bytes, size, at))
FAULTY(write, ssize_t, ENOSPC, (int file, const void* bytes, size_t size), (file, bytes, size))
FAULTY(pwrite, ssize_t, ENOSPC, (int file, const void* bytes, size_t size, off_t at),
       (file, bytes, size, at))
FAULTY(fsync, int, EIO, (int file), (file))
FAULTY(close, int, EIO, (int file), (file))
FAULTY(stat, int, EIO, (const char* path, struct stat* status), (path, status))
FAULTY(fstat, int, EIO, (int file, struct stat* status), (file, status))
FAULTY(unlink, int, EIO, (const char* path), (path))
FAULTY(rename, int, EIO, (const char* from, const char* to), (from, to))
FAULTY(linkat, int, EIO, (int a, const char* from, int b, const char* to, int flags),
       (a, from, b, to, flags))

// Whether a program is built for large files or not, it is the same call.
int stat64(const char* path, struct stat64* status) {
    static const auto next = original<int(const char*, struct stat64*)>("stat64");
    return fails("stat", EIO, CALLER) ? -1 : next(path, status);
}
int fstat64(int file, struct stat64* status) {
    static const auto next = original<int(int, struct stat64*)>("fstat64");
    return fails("fstat", EIO, CALLER) ? -1 : next(file, status);
}

char* realpath(const char* path, char* resolved) {
    static const auto next = original<char*(const char*, char*)>("realpath");
    return fails("realpath", EIO, CALLER) ? nullptr : next(path, resolved);
}
void* mmap(void* address, size_t size, int protection, int flags, int file, off_t at) {
    static const auto next = original<void*(void*, size_t, int, int, int, off_t)>("mmap");
    return fails("mmap", ENOMEM, CALLER) ? MAP_FAILED
                                         : next(address, size, protection, flags, file, at);
}
void* mmap64(void* address, size_t size, int protection, int flags, int file, off_t at) {
    static const auto next = original<void*(void*, size_t, int, int, int, off_t)>("mmap64");
    return fails("mmap", ENOMEM, CALLER) ? MAP_FAILED
                                         : next(address, size, protection, flags, file, at);
}

// The allocator itself, which looking up the next one in line would ask already.
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* memory, size_t size);
void* malloc(size_t size) {
    return fails("malloc", ENOMEM, CALLER) ? nullptr : __libc_malloc(size);
}
void* calloc(size_t count, size_t size) {
    return fails("malloc", ENOMEM, CALLER) ? nullptr : __libc_calloc(count, size);
}
void* realloc(void* memory, size_t size) {
    return fails("malloc", ENOMEM, CALLER) ? nullptr : __libc_realloc(memory, size);
}
}

// The usual ones call malloc() from within their own library, which hides who asks.
void* operator new(std::size_t size) {
    void* memory = fails("malloc", ENOMEM, CALLER) ? nullptr : __libc_malloc(size);
    return memory != nullptr ? memory : throw std::bad_alloc();
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return fails("malloc", ENOMEM, CALLER) ? nullptr : __libc_malloc(size);
}
#pragma GCC visibility pop
