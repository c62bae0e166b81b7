/* Put in front of the C library (LD_PRELOAD): the library's requests for memory can be made to fail one at a time. Those of
 * Python and NumPy go through. */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <stddef.h>
#include <string.h>

static _Thread_local __attribute__((tls_model("initial-exec"))) int asked,
    failing; /* requests of the library, the number of the one that fails */

__attribute__((visibility("default"))) void fail_request(int number) {
    asked = 0;
    failing = number;
}

/* Requests since fail_request. */
__attribute__((visibility("default"))) int requests(void) {
    return asked;
}

static int isOurs(void *caller) {
    Dl_info info;
    return dladdr(caller, &info) && info.dli_fname &&
           (strstr(info.dli_fname, "/uom/_core") || strstr(info.dli_fname, "/libuom.so"));
}

static int fails(void *caller) {
    return failing && isOurs(caller) && ++asked == failing;
}

/* Those of glibc, which are there before anything else is. */
extern void *__libc_realloc(void *block, size_t size);
extern void *__libc_malloc(size_t size);
extern void *__libc_calloc(size_t count, size_t size);

void *realloc(void *block, size_t size) {
    return fails(__builtin_return_address(0)) ? NULL : __libc_realloc(block, size);
}

/* What the compiler makes of a realloc of nothing. */
void *malloc(size_t size) {
    return fails(__builtin_return_address(0)) ? NULL : __libc_malloc(size);
}
void *calloc(size_t count, size_t size) {
    return fails(__builtin_return_address(0)) ? NULL : __libc_calloc(count, size);
}
