' The control from a script: documents, properties, sub-objects, optional arguments, errors.
Option Explicit

Dim failures: failures = 0

Sub Expect(what, actual, expected)
    If actual <> expected Then
        WScript.Echo what & ": got " & actual & ", expected " & expected
        failures = failures + 1
    End If
End Sub

Dim files: Set files = CreateObject("Scripting.FileSystemObject")
Dim folder: folder = files.GetSpecialFolder(2) & "\mavrin2-script"
If Not files.FolderExists(folder) Then files.CreateFolder folder

Dim editor: Set editor = CreateObject("KovMavrin2.Mavrin2")
Expect "nothing runs", editor.Status, 0
Expect "no error yet", editor.LastErrorNum, 0
Expect "block length", editor.FileBufferSize, 10001
editor.FileBufferSize = 50
Expect "a block is a tenth of a second at least", editor.FileBufferSize, 100
editor.UndoRedoCount = "20"
Expect "a text becomes a number", editor.UndoRedoCount, 20
Expect "there is nothing to undo", editor.UndoEnabled, 0
Dim place: place = editor.TempDirectory
Expect "the temporary folder ends in a separator", Right(place, 1), "\"
Expect "the clip file is there", editor.TempFileName, place & "KovClipBoard.wav"

editor.New 44100, 2
Expect "hertz", editor.FileInfo.Frequency, 44100
Expect "channels", editor.FileInfo.Channels, 2
Expect "format", editor.FileInfo.FormatString, "PCM 44100 Hz; 16 bit; stereo"
Expect "length", editor.Position.TotalSamples, 0
Expect "a work file", LCase(Right(editor.TempDirectory, 4)), ".tmp"
Expect "named for the editor", InStr(editor.TempDirectory, "nct") > 0, True

' Saved, opened again: with and without the optional kind of file.
editor.Save folder & "\empty.wav", False
editor.Open folder & "\empty.wav", 1
editor.Open folder & "\empty.wav"
Expect "opened", editor.FileInfo.Channels, 2
Expect "it is the companion's text", editor.FileInfo.FormatString, "WAVE of the tests"

Dim position: Set position = editor.Position
position.Selected = True
Expect "kept as given", position.Selected, -1
Expect "milliseconds to samples", position.SecToSamples(1000), 44100
Expect "and back", position.SamplesToSec(22050), 500

' A failing member: number, words and who says so.
On Error Resume Next
Err.Clear
editor.Open folder & "\no such file.wav"
Expect "the number of the failure", Hex(Err.Number), "80040309"
Expect "its words", Err.Description, "File Access error."
Expect "its source", Err.Source, "KovMavrin2.Mavrin2.2"
Expect "the last error", editor.LastErrorNum, -18
Err.Clear
editor.NoSuchMember
Expect "an unknown member", Err.Number, 438
Err.Clear
editor.New 44100
Expect "an argument is missing", Err.Number, 450
Err.Clear
editor.FileBufferSize = "many"
Expect "no number", Err.Number, 13
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
