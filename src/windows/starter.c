/* Runs a program, which is a function of a library, in this process, so that the icon in the task bar,
 * a start pinned there and the exit status are this one's. Compiled for each of these:
 *
 *   velmora.exe            what people start; sets the decimal point (VELMORA_POINT)
 *   programa\velmora.exe   the program as such, under the separator of the user's region
 *   velmora-informe.exe    the reports, which no separator changes
 *
 * VELMORA_LIBRARY is the library's place below the starter's folder, VELMORA_FUNCTION its function. */
#include <stdlib.h>
#include <wchar.h>
#include <windows.h>

enum { kLongestPath = 32768, kNotStarted = 3 };

static const wchar_t kMissing[] =
    L"Falta un fichero del programa:\n\n%ls\n\n"
    L"Si Velmora se ha bajado como fichero zip, hay que extraerlo entero en una carpeta y "
    L"abrirlo desde ella.";

typedef int (*Main)(int, char**);

static void Complain(const wchar_t* library) {
    static wchar_t text[kLongestPath + sizeof kMissing];
    swprintf(text, sizeof text / sizeof *text, kMissing, library);
    MessageBoxW(NULL, text, L"Velmora", MB_OK | MB_ICONERROR);
}

/* The words of the command line in UTF-8, whatever the code page of the system. */
static char** Words(int* count) {
    wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), count);
    char** const words = calloc((size_t)*count + 1, sizeof *words);
    for (int i = 0; i < *count; ++i) {
        const int room = WideCharToMultiByte(CP_UTF8, 0, wide[i], -1, NULL, 0, NULL, NULL);
        words[i] = malloc((size_t)room);
        WideCharToMultiByte(CP_UTF8, 0, wide[i], -1, words[i], room, NULL, NULL);
    }
    return words;
}

int main(void) {
    static wchar_t library[kLongestPath + sizeof VELMORA_LIBRARY];
    GetModuleFileNameW(NULL, library, kLongestPath);
    wcscpy(wcsrchr(library, L'\\') + 1, VELMORA_LIBRARY);
#ifdef VELMORA_POINT
    _putenv("LC_NUMERIC=C");
#endif
    /* From its own place and no other: a library of the same name elsewhere isn't taken. */
    const HMODULE loaded = LoadLibraryExW(library, NULL, LOAD_WITH_ALTERED_SEARCH_PATH);
    const Main run = loaded ? (Main)(void*)GetProcAddress(loaded, VELMORA_FUNCTION) : NULL;
    if (run) {
        int count = 0;
        char** const words = Words(&count);
        return run(count, words);
    }
    Complain(library);
    return kNotStarted;
}
