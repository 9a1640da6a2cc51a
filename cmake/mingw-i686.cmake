set(MINGW_ARCHITECTURE i686)
# SSE arithmetic, so that floating point equals the 64-bit builds; Windows callers align to 4 only.
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse -mstackrealign")
include("${CMAKE_CURRENT_LIST_DIR}/mingw.cmake")
