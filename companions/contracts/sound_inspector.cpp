#include "companions/contracts/sound_inspector.h"

#include "automation/interface_builder.h"
#include "companions/contracts/dusoro.h"

namespace mavrin2::automation {

template <>
const InterfaceDescription& DescriptionOf<contracts::ISoundInspector>() {
    using I = contracts::ISoundInspector;
    static const InterfaceDescription description =
        InterfaceBuilder<I>("ISoundInspector", "What a sound file has beside its sound",
                            &contracts::DusoroLibrary)
            .Method<&I::Inspect>(1, "Inspect", "Opens a sound file", In("fileName"))
            .Method<&I::Skip>(2, "Skip", "Decodes sample frames; fewer at the end", In("count"),
                              Result("frames"))
            .Get<&I::get_FormatText>(3, "FormatText", "A readable description of the format")
            .Get<&I::get_Frequency>(4, "Frequency", "Sample rate in hertz")
            .Get<&I::get_Channels>(5, "Channels", "Channels of the file")
            .Get<&I::get_BitsPerSample>(6, "BitsPerSample", "Bits of a sample in the file")
            .GetBoolean<&I::get_PlainPcm>(7, "PlainPcm", "Whether the samples are not coded")
            .Get<&I::get_Frames>(8, "Frames", "Length in sample frames, perhaps estimated")
            .Get<&I::get_StatedFrames>(9, "StatedFrames",
                                       "Length that the file states; 0 where it does not")
            .Get<&I::get_DamagedBlocks>(10, "DamagedBlocks",
                                        "Damaged parts in what has been decoded")
            .Get<&I::get_LimitedSamples>(11, "LimitedSamples",
                                         "Samples beyond full scale in what has been decoded")
            .GetBoolean<&I::get_ChecksumDiffers>(
                12, "ChecksumDiffers", "Whether the checksum of the whole sound is another one")
            .GetBoolean<&I::get_EndMissing>(13, "EndMissing", "Whether the file is cut")
            .Build();
    return description;
}

}  // namespace mavrin2::automation
