#include "platform/linux/automation/data_transfer.h"

#include <cstdlib>
#include <new>

#include "platform/linux/automation/functions.h"

// A block: its size, then the bytes, aligned for everything.
struct alignas(std::max_align_t) HGLOBAL__ {
    SIZE_T Size;
};

HGLOBAL GlobalAlloc(UINT flags, SIZE_T size) {
    if (size > SIZE_MAX - sizeof(HGLOBAL__)) return nullptr;
    const SIZE_T whole = sizeof(HGLOBAL__) + size;
    void* memory = (flags & GMEM_ZEROINIT) != 0 ? std::calloc(1, whole) : std::malloc(whole);
    return memory != nullptr ? new (memory) HGLOBAL__{size} : nullptr;
}

SIZE_T GlobalSize(HGLOBAL block) {
    return block != nullptr ? block->Size : 0;
}

LPVOID GlobalLock(HGLOBAL block) {
    return block != nullptr ? block + 1 : nullptr;
}

BOOL GlobalUnlock(HGLOBAL) {
    return FALSE;  // not locked any more, ever
}

HGLOBAL GlobalFree(HGLOBAL block) {
    std::free(block);
    return nullptr;
}

void ReleaseStgMedium(STGMEDIUM* medium) {
    if (medium == nullptr) return;
    const DWORD kind = medium->tymed;
    medium->tymed = TYMED_NULL;
    if (kind == TYMED_ISTREAM && medium->pstm != nullptr) medium->pstm->Release();
    if (kind == TYMED_ISTORAGE && medium->pstg != nullptr) medium->pstg->Release();
    if (medium->pUnkForRelease != nullptr) {
        // The source of the data keeps it.
        medium->pUnkForRelease->Release();
    } else if (kind == TYMED_HGLOBAL) {
        GlobalFree(medium->hGlobal);
    } else if (kind == TYMED_FILE) {
        CoTaskMemFree(medium->lpszFileName);
    }
    *medium = {};
}
