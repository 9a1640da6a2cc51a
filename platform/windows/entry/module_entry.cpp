// What the system calls when it loads or unloads a component; compiled into each.

#include "platform/automation.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID) {
    // Nothing here keeps account of threads. The system refuses where a library inside the module
    // does, which is as well. All else that the module would note, its place and its classes, is
    // found when it is asked for.
    if (reason == DLL_PROCESS_ATTACH) ::DisableThreadLibraryCalls(module);
    return TRUE;
}
