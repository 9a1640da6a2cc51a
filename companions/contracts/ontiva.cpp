#include "companions/contracts/ontiva.h"

#include "automation/interface_builder.h"

namespace mavrin2 {
namespace automation {

template <>
const InterfaceDescription& DescriptionOf<contracts::IOntiva>() {
    using I = contracts::IOntiva;
    static const InterfaceDescription description =
        InterfaceBuilder<I>("IOntiva", "Tags and markers in sound files", &contracts::OntivaLibrary)
            .Method<&I::ReadInfo>(1, "ReadInfo", "Reads tags and markers of a file", In("fileName"))
            .Method<&I::WriteInfo>(2, "WriteInfo", "Writes tags and markers to a file",
                                   In("fileName"))
            .Method<&I::GenreToString>(3, "GenreToString", "Name of a numbered genre", In("genre"),
                                       Result("name"))
            .Property<&I::get_Mp3TagInfoVersion, &I::put_Mp3TagInfoVersion>(
                4, "Mp3TagInfoVersion", "2 to 4 for ID3v2, 1 for ID3v1, 0 for none")
            .Put<&I::put_InfoSwitch>(5, "InfoSwitch", "0: read and write nothing")
            .Property<&I::get_Album, &I::put_Album>(6, "Album", "Title of the album")
            .Property<&I::get_Artist, &I::put_Artist>(7, "Artist", "Performers")
            .Property<&I::get_Comments, &I::put_Comments>(8, "Comments", "Any text")
            .Property<&I::get_Copyright, &I::put_Copyright>(9, "Copyright", "Who has the rights")
            .Property<&I::get_Genre, &I::put_Genre>(10, "Genre",
                                                    "Number of the genre, 255 for none")
            .Property<&I::get_Title, &I::put_Title>(11, "Title", "Title of the sound")
            .Property<&I::get_Year, &I::put_Year>(12, "Year", "Year of the recording, 0 for none")
            .Property<&I::get_URL, &I::put_URL>(13, "URL", "Address of a page")
            .Property<&I::get_Track, &I::put_Track>(14, "Track", "Number of the track, 0 for none")
            .Property<&I::get_EncodedBy, &I::put_EncodedBy>(15, "EncodedBy", "Who made the file")
            .Property<&I::get_Composer, &I::put_Composer>(16, "Composer", "Composers")
            .Property<&I::get_GenreS, &I::put_GenreS>(17, "GenreS", "Genre as a text")
            .Property<&I::get_OriginalArtist, &I::put_OriginalArtist>(18, "OriginalArtist",
                                                                      "Performers of the original")
            .Method<&I::InfoAddMarker>(
                19, "InfoAddMarker", "Appends a marker, in sample frames", In("position"),
                In("length"), In("label"), In("note"), In("text"), In("country").Default(0),
                In("language").Default(0), In("dialect").Default(0), In("codePage").Default(0))
            .Method<&I::InfoRemoveMarker>(20, "InfoRemoveMarker", "Removes the last marker")
            .Get<&I::get_InfoMarkerCount>(21, "InfoMarkerCount", "Number of markers")
            .Put<&I::put_InfoMarkerNum>(22, "InfoMarkerNum", "Marker to be described, from 1")
            .Get<&I::get_InfoMarkerPosition>(23, "InfoMarkerPosition", "Position in sample frames")
            .Get<&I::get_InfoMarkerLength>(24, "InfoMarkerLength", "Length in sample frames")
            .Get<&I::get_InfoMarkerLabel>(25, "InfoMarkerLabel", "Label of the marker")
            .Get<&I::get_InfoMarkerNote>(26, "InfoMarkerNote", "Note of the marker")
            .Get<&I::get_InfoMarkerText>(27, "InfoMarkerText", "Text of the marker")
            .Get<&I::get_InfoMarkerCountry>(28, "InfoMarkerCountry", "Country of the text")
            .Get<&I::get_InfoMarkerLanguage>(29, "InfoMarkerLanguage", "Language of the text")
            .Get<&I::get_InfoMarkerDialect>(30, "InfoMarkerDialect", "Dialect of the text")
            .Get<&I::get_InfoMarkerCodePage>(31, "InfoMarkerCodePage", "Code page of the text")
            .Build();
    return description;
}

}  // namespace automation

namespace contracts {

const automation::LibraryDescription& OntivaLibrary() {
    static const automation::LibraryDescription library{
        "KovONTIVALib",
        LIBID_KovOntiva,
        1,
        0,
        "KovOntiva 1.0 Type Library",
        {},
        {&automation::DescriptionOf<IOntiva>},
        {{"KovOntiva", CLSID_KovOntiva, "Tags and markers", &automation::DescriptionOf<IOntiva>}}};
    return library;
}

}  // namespace contracts
}  // namespace mavrin2
