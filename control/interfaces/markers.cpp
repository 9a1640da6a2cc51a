#include "control/interfaces/markers.h"

#include "automation/interface_builder.h"
#include "control/interfaces/library.h"

namespace mavrin2::automation {

template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2Markers>() {
    using I = interfaces::IMavrin2Markers;
    static const InterfaceDescription description =
        InterfaceBuilder<I>("IMavrin2Markers", "Markers of the sound, in sample frames",
                            &interfaces::ControlLibrary)
            .Method<&I::Insert>(1, "Insert", "Appends a marker; with length 0 a cue, else a range",
                                In("Position"), In("Length"), In("Label"), In("Note").Default(""))
            .Method<&I::Delete>(2, "Delete", "Removes the current marker")
            .Get<&I::get_Count>(5, "Count", "Number of markers")
            .Property<&I::get_Num, &I::put_Num>(
                6, "Num", "Number of the current marker, 1 ... Count; 0 without markers")
            .Property<&I::get_Length, &I::put_Length>(9, "Length", "Length in frames, 0 for a cue")
            .Property<&I::get_Position, &I::put_Position>(10, "Position", "First frame")
            .Property<&I::get_Label, &I::put_Label>(13, "Label", "Name; 9 characters are shown")
            .Property<&I::get_Note, &I::put_Note>(14, "Note", "Comment")
            .Property<&I::get_Text, &I::put_Text>(15, "Text", "Free text; not saved")
            .Property<&I::get_Color, &I::put_Color>(16, "Color", "Colour, 0x00BBGGRR")
            .Build();
    return description;
}

}  // namespace mavrin2::automation
