#include "companions/ontiva/backends/taglib/conversions.h"

#include <memory>

namespace mavrin2::ontiva {

Fields ToFields(const TagLib::PropertyMap& properties) {
    Fields fields;
    for (const auto& [name, values] : properties) {
        Fields::Values texts;
        for (const TagLib::String& value : values)
            if (!value.isEmpty()) texts.push_back(ToUtf8(value));
        fields.SetAll(ToUtf8(name), std::move(texts));
    }
    return fields;
}

TagLib::PropertyMap ToProperties(const Fields& fields) {
    TagLib::PropertyMap properties;
    for (const auto& [name, values] : fields.Entries()) {
        TagLib::StringList texts;
        for (const std::string& value : values)
            texts.append(ToText(value));
        properties.insert(ToText(name), texts);
    }
    return properties;
}

Picture ToPicture(const TagLib::FLAC::Picture& picture) {
    return {static_cast<std::int32_t>(picture.type()), ToUtf8(picture.mimeType()),
            ToUtf8(picture.description()), ToBytes(picture.data())};
}

TagLib::FLAC::Picture* NewPicture(const Picture& picture) {
    auto made = std::make_unique<TagLib::FLAC::Picture>();
    made->setType(static_cast<TagLib::FLAC::Picture::Type>(picture.Type));
    made->setMimeType(ToText(picture.Mime));
    made->setDescription(ToText(picture.Description));
    made->setData(ToVector(picture.Data));
    return made.release();
}

}  // namespace mavrin2::ontiva
