#include "platform/linux/automation/controls.h"
#include "platform/linux/automation/pictures.h"

namespace {

constexpr IID Classic(std::uint32_t first) {
    return {first, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
}
constexpr IID Control(std::uint32_t first) {
    return {first, 0xBAB4, 0x101A, {0xB6, 0x9C, 0x00, 0xAA, 0x00, 0x34, 0x1D, 0x07}};
}
constexpr IID Extended(std::uint32_t first) {
    return {first, 0x0C96, 0x11CE, {0xA0, 0xCF, 0x00, 0xAA, 0x00, 0x60, 0x0A, 0xB8}};
}

constexpr IID Picture(std::uint32_t first) {
    return {first, 0xBF32, 0x101A, {0x8B, 0xBB, 0x00, 0xAA, 0x00, 0x30, 0x0C, 0xAB}};
}

}  // namespace

const IID IID_IStorage = Classic(0x0000000B);
const IID IID_IStream = Classic(0x0000000C);
const IID IID_IEnumFORMATETC = Classic(0x00000103);
const IID IID_IEnumOLEVERB = Classic(0x00000104);
const IID IID_IEnumSTATDATA = Classic(0x00000105);
const IID IID_IPersistStorage = Classic(0x0000010A);
const IID IID_IPersist = Classic(0x0000010C);
const IID IID_IViewObject = Classic(0x0000010D);
const IID IID_IDataObject = Classic(0x0000010E);
const IID IID_IAdviseSink = Classic(0x0000010F);
const IID IID_IOleObject = Classic(0x00000112);
const IID IID_IOleInPlaceObject = Classic(0x00000113);
const IID IID_IOleWindow = Classic(0x00000114);
const IID IID_IOleInPlaceUIWindow = Classic(0x00000115);
const IID IID_IOleInPlaceFrame = Classic(0x00000116);
const IID IID_IOleInPlaceActiveObject = Classic(0x00000117);
const IID IID_IOleClientSite = Classic(0x00000118);
const IID IID_IOleInPlaceSite = Classic(0x00000119);
const IID IID_IParseDisplayName = Classic(0x0000011A);
const IID IID_IOleContainer = Classic(0x0000011B);
const IID IID_IViewObject2 = Classic(0x00000127);
const IID IID_IOleControl = Control(0xB196B288);
const IID IID_IOleControlSite = Control(0xB196B289);
const IID IID_ISpecifyPropertyPages = Control(0xB196B28B);
const IID IID_IAdviseSinkEx = Extended(0x3AF24290);
const IID IID_IViewObjectEx = Extended(0x3AF24292);
const IID IID_ISequentialStream = {
    0x0C733A30, 0x2A1C, 0x11CE, {0xAD, 0xE5, 0x00, 0xAA, 0x00, 0x44, 0x77, 0x3D}};
const IID IID_IPersistStreamInit = {
    0x7FD52380, 0x4E07, 0x101B, {0xAE, 0x2D, 0x08, 0x00, 0x2B, 0x2E, 0xC7, 0x13}};
const IID IID_IOleInPlaceObjectWindowless = {
    0x1C2056CC, 0x5EF4, 0x101B, {0x8B, 0xC8, 0x00, 0xAA, 0x00, 0x3E, 0x3B, 0x29}};
const IID IID_IQuickActivate = {
    0xCF51ED10, 0x62FE, 0x11CF, {0xBF, 0x86, 0x00, 0xA0, 0xC9, 0x03, 0x48, 0x36}};
const IID IID_IPicture = Picture(0x7BF80980);
const IID IID_IPictureDisp = Picture(0x7BF80981);
