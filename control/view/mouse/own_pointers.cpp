#include "control/view/mouse/own_pointers.h"

#include <string_view>

namespace mavrin2::view {
namespace {

using platform::Pointer;
using platform::PointerImage;
using platform::PointerShape;

constexpr int kSize = 32;

// '#' is black, 'o' white, anything else transparent; what a text leaves out is transparent.
Pointer Draw(PointerShape shape, int hotSpotX, int hotSpotY, std::string_view text) {
    PointerImage image{kSize, kSize, hotSpotX, hotSpotY, {}};
    image.Pixels.resize(std::size_t{kSize} * kSize);
    std::size_t x = 0;
    std::size_t y = 0;
    for (const char c : text) {
        if (c == '\n') {
            x = 0;
            ++y;
            continue;
        }
        if (c == '#') image.Pixels[y * kSize + x] = 0xFF000000;
        if (c == 'o') image.Pixels[y * kSize + x] = 0xFFFFFFFF;
        ++x;
    }
    return {shape, std::make_shared<const PointerImage>(std::move(image))};
}

}  // namespace

const Pointer& LeftChannelPointer() {
    static const Pointer pointer = Draw(PointerShape::LeftChannel, 1, 1,
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
#ooo#oo#    ###
#oo##oo#    #o#
#o# #ooo#   #o#
##   #oo#   #o#
#    #ooo#  #o#
      #oo#  #o#
      #oo#  #o#
       ##   #o#
            #o#
            #o######
            #oooooo#
            ########)");
    return pointer;
}

const Pointer& RightChannelPointer() {
    static const Pointer pointer = Draw(PointerShape::RightChannel, 1, 1,
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
#ooo#oo#    ########
#oo##oo#    #oooooo##
#o# #ooo#   #o#####o#
##   #oo#   #o#   #o#
#    #ooo#  #o#   #o#
      #oo#  #o#####o#
      #oo#  #oooooo##
       ##   #o##o##
            #o##oo#
            #o# #oo#
            #o#  #oo#
            ###   ###)");
    return pointer;
}

const Pointer& GrabPointer() {
    static const Pointer pointer = Draw(PointerShape::Grab, 11, 4,
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
    static const Pointer pointer = Draw(PointerShape::MarkerZone, 1, 1,
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
