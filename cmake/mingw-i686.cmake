set(MINGW_ARCHITECTURE i686)
# SSE arithmetic, so that floating point equals the 64-bit builds; Windows callers align to 4 only.
# Its memory is aligned to 8 only too, where the compiler counts on 16: vectors need the aligned new.
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse -mstackrealign -faligned-new=8")
include("${CMAKE_CURRENT_LIST_DIR}/mingw.cmake")
