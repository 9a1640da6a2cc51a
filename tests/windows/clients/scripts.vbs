' What scripts need of late binding that compiled hosts do not: the default member, arguments left out
' in the middle, Set, Err. The thing of the tests has members of every kind.
Option Explicit

Dim failures: failures = 0

Sub Expect(what, actual, expected)
    If actual <> expected Then
        WScript.Echo what & ": got " & actual & ", expected " & expected
        failures = failures + 1
    End If
End Sub

Dim thing: Set thing = CreateObject("MavrinTest.Thing")
thing.Item(5) = "five"
thing.Item("6") = 6
Expect "indexed", thing.Item(5), "five"
Expect "indexed by a text", thing.Item(6), "6"
thing(7) = "seven"
Expect "by the default member", thing(7), "seven"
Expect "a double", thing.EchoDouble(0.1), 0.1
Expect "a boolean", thing.EchoBoolean(True), True
Expect "left out in the middle", thing.WithDefaults(1, , 0), "1 7 0 -2.5 none 4"
Dim other: Set other = thing.MakeThing()
Set thing.Friend = other
Expect "by reference", thing.FriendBy, "putref"
Expect "the same object", thing.Friend Is other, True

Dim files: Set files = CreateObject("Scripting.FileSystemObject")
Dim folder: folder = files.GetSpecialFolder(2) & "\mavrin2-script"
If Not files.FolderExists(folder) Then files.CreateFolder folder
Dim editor: Set editor = CreateObject("KovMavrin2.Mavrin2")
editor.UndoRedoCount = "20"
Expect "a text becomes a number", editor.UndoRedoCount, 20
editor.New 44100, 2
Expect "format", editor.FileInfo.FormatString, "PCM 44100 Hz; 16 bit; stereo"
Expect "a work file", LCase(Right(editor.TempDirectory, 4)), ".tmp"
editor.Save folder & "\empty.wav", False
editor.Open folder & "\empty.wav"
Expect "the companion's text", editor.FileInfo.FormatString, "Fake sound"
Dim position: Set position = editor.Position
Expect "milliseconds to samples", position.SecToSamples(1000), 44100

On Error Resume Next
Err.Clear
editor.Open folder & "\no such file.wav"
Expect "the number of a failure", Hex(Err.Number), "80040309"
Expect "its description", Err.Description, "File Access error."
Expect "its source", Err.Source, "KovMavrin2.Mavrin2.2"
Err.Clear
editor.NoSuchMember
Expect "an unknown member", Err.Number, 438
Err.Clear
editor.New 44100
Expect "an argument is missing", Err.Number, 450
Err.Clear
editor.FileBufferSize = "many"
Expect "not a number", Err.Number, 13
Err.Clear
thing.EchoShort 70000
Expect "too large", Err.Number, 6
Err.Clear
On Error Goto 0

' A sub-object outlives its control, and acts as with no document.
Set editor = Nothing
Expect "no document", position.TotalSamples, 0
Dim alone: Set alone = CreateObject("KovMavrin2.Mavrin2Position")
Expect "alone", alone.StartSelect, 0

files.DeleteFolder folder
If failures > 0 Then WScript.Quit 1
WScript.Quit 42
