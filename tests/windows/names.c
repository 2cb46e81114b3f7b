/* names <part of a title>: prints the name and the class that UI Automation, by which screen
 * readers read, tells of the window with this in its title. Status 0: the window itself answers. */
#include <windows.h>

#include <oleauto.h>
#include <stdio.h>

/* MinGW knows them neither in its headers nor in a library. */
static HRESULT(WINAPI* node_of_window)(HWND, void**);
static HRESULT(WINAPI* value_of_property)(void*, int, VARIANT*);

static const wchar_t* wanted;
static HWND found;

static BOOL CALLBACK Look(HWND window, LPARAM unused) {
    wchar_t title[256];
    (void)unused;
    GetWindowTextW(window, title, sizeof title / sizeof *title);
    if (IsWindowVisible(window) && wcsstr(title, wanted)) found = window;
    return found == NULL;
}

static int Print(void* node, int property) {
    VARIANT value;
    char text[1024];
    if (value_of_property(node, property, &value) != S_OK || V_VT(&value) != VT_BSTR) return 1;
    WideCharToMultiByte(CP_UTF8, 0, V_BSTR(&value), -1, text, sizeof text, NULL, NULL);
    puts(text);
    return 0;
}

int wmain(int argc, wchar_t** argv) {
    enum { kName = 30005, kClassName = 30012 };
    const HMODULE automation = LoadLibraryW(L"uiautomationcore.dll");
    void* node;
    if (argc != 2 || !automation) return 1;
    node_of_window = (void*)GetProcAddress(automation, "UiaNodeFromHandle");
    value_of_property = (void*)GetProcAddress(automation, "UiaGetPropertyValue");
    CoInitializeEx(NULL, COINIT_MULTITHREADED);
    wanted = argv[1];
    EnumWindows(Look, 0);
    if (!found || node_of_window(found, &node) != S_OK) return 1;
    return Print(node, kName) + Print(node, kClassName);
}
