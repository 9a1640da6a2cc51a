#pragma once

#include <bit>
#include <string>
#include <string_view>

#include "companions/ontiva/chunks/chunk_file.h"
#include "companions/ontiva/info/fields.h"

namespace mavrin2::ontiva {

// Texts of a sound in chunks, which programs read that know no tags.

// The INFO list of a WAV file; `list` begins with "INFO". Entries without a usual name are left
// out.
Fields ReadInfoList(std::string_view list, std::endian order);
// A list with these fields, and with the entries of `present`, an older list, that have no usual
// name. Empty when there is nothing to hold.
std::string RenderInfoList(const Fields& fields, std::string_view present, std::endian order);

// The chunks NAME, AUTH, "(c) " and ANNO of an AIFF file.
bool IsAiffText(const Chunk& chunk);
Fields ReadAiffTexts(const ChunkFile& chunks);
// Whole chunks.
std::string RenderAiffTexts(const Fields& fields);

}  // namespace mavrin2::ontiva
