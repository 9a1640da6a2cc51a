#include "hosts/script/picture/sound_picture.h"

#include "platform/pixel_target.h"

namespace mavrin2::script {

void SoundPicture::Draw(int top, const platform::Pixels& rows) {
    platform::PixelTarget target(rows, {0, -top}, {0, 0, rows.Width, rows.Height});
    control_.Draw(target);
}

}  // namespace mavrin2::script
