/* Goes to a directory, then prints the data file that a start reads, or why it reads none.
 * Arguments: the directory, the room for the path. */
#include <stdio.h>
#include <stdlib.h>
#include <unistd.h>

#include "uom/uom.h"

int main(int count, char **words) {
    char path[1024] = "untouched";
    if (count != 3 || chdir(words[1]) != 0)
        return 2;
    const int32_t found = uom_FindDataFile(path, atoi(words[2]));
    printf("%d %s\n", (int)found, path);
    if (found != 0)
        printf("%s\n", uom_GetLastErrorMessage());
    const int32_t started = uom_Init();
    printf("%d\n", (int)started);
    if (started != 0)
        printf("%s\n", uom_GetLastErrorMessage());
    uom_Cleanup();
    return 0;
}
