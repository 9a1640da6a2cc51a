#pragma once

#include "companions/ontiva/libraries/libraries.h"

namespace mavrin2::ontiva {

CommentContent ReadVorbisComments(EditedFile& file, const RecognizedFile& kind);
void WriteVorbisComments(EditedFile& file, const RecognizedFile& kind,
                         const CommentContent& content);

}  // namespace mavrin2::ontiva
