/* browser <page>: stands in for the browser: writes what it is to open into C:\abierto.txt, in
 * UTF-8. */
#include <stdio.h>
#include <wchar.h>

int wmain(int argc, wchar_t** argv) {
    FILE* const note = _wfopen(L"C:\\abierto.txt", L"w, ccs=UTF-8");
    return argc == 2 && note && fputws(argv[1], note) >= 0 ? 0 : 1;
}
