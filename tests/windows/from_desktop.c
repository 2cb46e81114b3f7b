/* from_desktop <program> [argument...]: starts a program as the desktop does, where nothing hears what
 * it says, and ends with its exit status. */
#include <windows.h>

#include <shlwapi.h>

int main(void) {
    STARTUPINFOW start = {.cb = sizeof start, .dwFlags = STARTF_USESTDHANDLES};
    PROCESS_INFORMATION started;
    DWORD status = 1;
    if (!CreateProcessW(NULL, PathGetArgsW(GetCommandLineW()), NULL, NULL, FALSE, DETACHED_PROCESS,
                        NULL, NULL, &start, &started)) {
        return 1;
    }
    WaitForSingleObject(started.hProcess, INFINITE);
    GetExitCodeProcess(started.hProcess, &status);
    return (int)status;
}
