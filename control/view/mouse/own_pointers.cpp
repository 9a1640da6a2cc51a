#include "control/view/mouse/own_pointers.h"

#include <string_view>
#include <utility>

namespace mavrin2::view {
namespace {

using platform::Pointer;
using platform::PointerImage;
using platform::PointerShape;

constexpr int kSize = 32;

// '#' is black, 'o' white, anything else transparent; what a text leaves out stays as it was.
void Draw(PointerImage& image, std::size_t left, std::size_t top, std::string_view text) {
    std::size_t x = left;
    std::size_t y = top;
    for (const char c : text) {
        if (c == '\n') {
            x = left;
            ++y;
            continue;
        }
        if (c == '#') image.Pixels[y * kSize + x] = 0xFF000000;
        if (c == 'o') image.Pixels[y * kSize + x] = 0xFFFFFFFF;
        ++x;
    }
}

PointerImage Blank(int hotSpotX, int hotSpotY) {
    return {kSize, kSize, hotSpotX, hotSpotY,
            std::vector<std::uint32_t>(std::size_t{kSize} * kSize)};
}

Pointer Made(PointerShape shape, PointerImage image) {
    return {shape, std::make_shared<const PointerImage>(std::move(image))};
}

Pointer Picture(PointerShape shape, int hotSpotX, int hotSpotY, std::string_view text) {
    PointerImage image = Blank(hotSpotX, hotSpotY);
    Draw(image, 0, 0, text);
    return Made(shape, std::move(image));
}

// The arrow with a letter beside it.
Pointer Arrow(PointerShape shape, std::string_view letter) {
    constexpr std::size_t kLetter = 12;  // from the left and from the top
    PointerImage image = Blank(1, 1);
    Draw(image, 0, 0,
         R"(##
#o#
#oo#
#ooo#
#oooo#
#ooooo#
#oooooo#
#ooooooo#
#oooooooo#
#ooooooooo#
#ooooooooo#
#oooooo####
#ooo#oo#
#oo##oo#
#o# #ooo#
##   #oo#
#    #ooo#
      #oo#
      #oo#
       ##)");
    Draw(image, kLetter, kLetter, letter);
    return Made(shape, std::move(image));
}

}  // namespace

const Pointer& LeftChannelPointer() {
    static const Pointer pointer = Arrow(PointerShape::LeftChannel,
                                         R"(###
#o#
#o#
#o#
#o#
#o#
#o#
#o#
#o#
#o######
#oooooo#
########)");
    return pointer;
}

const Pointer& RightChannelPointer() {
    static const Pointer pointer = Arrow(PointerShape::RightChannel,
                                         R"(########
#oooooo##
#o#####o#
#o#   #o#
#o#   #o#
#o#####o#
#oooooo##
#o##o##
#o##oo#
#o# #oo#
#o#  #oo#
###   ###)");
    return pointer;
}

const Pointer& GrabPointer() {
    static const Pointer pointer = Picture(PointerShape::Grab, 11, 4,
                                           R"(


          ##
       ##o##o##
      #oo#oo#oo###
      #oo#oo#oo#oo#
       #oo#oo#oo#oo#
   ##  #oo#oo#oo#oo#
  #oo# #oo#oo#oo#oo#
  #ooo##oooooooooooo#
   #ooo#oooooooooooo#
    #oooooooooooooo#
    #oooooooooooooo#
     #ooooooooooooo#
      #oooooooooooo#
      #ooooooooooo#
       #oooooooooo#
        #oooooooo#
        #oooooooo#
        ##########)");
    return pointer;
}

const Pointer& MarkerZonePointer() {
    static const Pointer pointer = Picture(PointerShape::MarkerZone, 1, 1,
                                           R"(###
#oo##
#oooo##
 #oooo##
 ##oooo##
  ##oooo########
   ##ooooooo#oo##
    ##oooooo#ooo##
     ##oooo##oooo##
   ###oooooooooooo#
  ##ooooooooooooooo#
  #oo##ooooooooooooo#
  ####oooooooooooooo#
    ##oo##ooooooooooo#
    #ooo##ooooooooooo#
    #####ooooooooooo#
       ##ooooooooo##
       #oooooooo##
       #########)");
    return pointer;
}

}  // namespace mavrin2::view
