#pragma once

#include <taglib/flacpicture.h>
#include <taglib/tbytevector.h>
#include <taglib/tpropertymap.h>
#include <taglib/tstring.h>

#include <string>
#include <string_view>

#include "companions/ontiva/info/sound_info.h"

namespace mavrin2::ontiva {

inline TagLib::ByteVector ToVector(std::string_view bytes) {
    return {bytes.data(), static_cast<unsigned int>(bytes.size())};
}
inline std::string ToBytes(const TagLib::ByteVector& vector) {
    return {vector.data(), vector.size()};
}
inline TagLib::String ToText(std::string_view utf8) {
    return {ToVector(utf8), TagLib::String::UTF8};
}
inline std::string ToUtf8(const TagLib::String& text) {
    return text.to8Bit(true);
}

Fields ToFields(const TagLib::PropertyMap& properties);
TagLib::PropertyMap ToProperties(const Fields& fields);

Picture ToPicture(const TagLib::FLAC::Picture& picture);
// Becomes the property of the tag that it is added to.
TagLib::FLAC::Picture* NewPicture(const Picture& picture);

}  // namespace mavrin2::ontiva
