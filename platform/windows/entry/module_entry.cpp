// What the system calls when it loads or unloads a component; compiled into each.

#include "platform/automation.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID) {
    // Nothing here keeps account of threads. The system refuses where the compiler's own library in
    // the module does, for what is local to a thread: then its calls are needed, and the module is
    // as good, so the answer does not matter. All else that the module would note, its place and
    // its classes, is found when it is asked for.
    if (reason == DLL_PROCESS_ATTACH) ::DisableThreadLibraryCalls(module);
    return TRUE;
}
