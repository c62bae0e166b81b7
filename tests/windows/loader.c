/* A host that loads DLLs from where they are, and asks the last one where its data file is.
 * Arguments: the name of the function that tells it, the DLLs in the order of their loading. Prints "status path" and,
 * of the library itself, the status of a start; unloads what it loaded. */
#include <stdint.h>
#include <stdio.h>
#include <windows.h>

typedef int32_t (*Find)(char *out, int32_t size);
typedef int32_t (*Start)(void);
typedef void (*End)(void);

int wmain(int count, wchar_t **words) {
    HMODULE modules[8] = {NULL};
    char name[64], path[2000] = "";
    if (count < 3 || count > 10)
        return 2;
    for (int i = 2; i < count; ++i) {
        modules[i - 2] = LoadLibraryW(words[i]);
        if (!modules[i - 2]) {
            printf("cannot load %d: error %lu\n", i, GetLastError());
            return 2;
        }
    }
    const HMODULE last = modules[count - 3];
    snprintf(name, sizeof name, "%ls", words[1]);
    const Find find = (Find)(void (*)(void))GetProcAddress(last, name);
    const Start start = (Start)(void (*)(void))GetProcAddress(last, "uom_Init");
    const End end = (End)(void (*)(void))GetProcAddress(last, "uom_Cleanup");
    if (!find)
        return 2;
    const int32_t found = find(path, sizeof path);
    printf("%d %s\n", (int)found, path);
    if (start && end) {
        printf("%d\n", (int)start());
        end();
    }
    for (int i = count - 3; i >= 0; --i)
        FreeLibrary(modules[i]);
    printf("unloaded\n");
    return 0;
}
