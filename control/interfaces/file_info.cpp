#include "control/interfaces/file_info.h"

#include "automation/interface_builder.h"
#include "control/interfaces/library.h"

namespace mavrin2::automation {

template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2FileInfo>() {
    using I = interfaces::IMavrin2FileInfo;
    static const InterfaceDescription description =
        InterfaceBuilder<I>("IMavrin2FileInfo", "Format and tags of the sound",
                            &interfaces::ControlLibrary)
            .Method<&I::GenreToString>(1, "GenreToString", "Name of a numbered genre of ID3v1",
                                       In("nGenre"), Result("Name"))
            .Get<&I::get_Frequency>(5, "Frequency", "Sample rate in hertz")
            .Get<&I::get_Channels>(6, "Channels", "1 or 2")
            .Property<&I::get_Title, &I::put_Title>(7, "Title", "Title of the sound")
            .Property<&I::get_Year, &I::put_Year>(8, "Year", "Year of the recording, 0 for none")
            .Property<&I::get_Artist, &I::put_Artist>(9, "Artist", "Performers")
            .Property<&I::get_Album, &I::put_Album>(10, "Album", "Title of the album")
            .Get<&I::get_FormatString>(11, "FormatString",
                                       "Format of the file last opened or saved")
            .Property<&I::get_Composer, &I::put_Composer>(12, "Composer", "Composers")
            .Property<&I::get_URL, &I::put_URL>(13, "URL", "Address of a page")
            .Property<&I::get_Track, &I::put_Track>(14, "Track", "Number of the track, 0 for none")
            .Property<&I::get_EncodedBy, &I::put_EncodedBy>(15, "EncodedBy", "Who made the file")
            .Property<&I::get_Comments, &I::put_Comments>(16, "Comments", "Any text")
            .Property<&I::get_Copyright, &I::put_Copyright>(17, "Copyright", "Who has the rights")
            .Property<&I::get_Genre, &I::put_Genre>(18, "Genre",
                                                    "Number of the genre in ID3v1, 255 for none")
            .Property<&I::get_GenreS, &I::put_GenreS>(19, "GenreS", "Genre as a text")
            .Property<&I::get_OriginalArtist, &I::put_OriginalArtist>(20, "OriginalArtist",
                                                                      "Performers of the original")
            .BooleanProperty<&I::get_SaveExtraInfoEnabled, &I::put_SaveExtraInfoEnabled>(
                30, "SaveExtraInfoEnabled", "Whether Save writes markers and tags")
            .Property<&I::get_Mp3TagInfoVersion, &I::put_Mp3TagInfoVersion>(
                40, "Mp3TagInfoVersion",
                "2 to 4 for ID3v2, 1 for ID3v1, 0 for none; put 4 to write 2.4")
            .Build();
    return description;
}

}  // namespace mavrin2::automation
