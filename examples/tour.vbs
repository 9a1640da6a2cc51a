' A tour, as examples/tour.lua, for the script host of Windows: a sound is opened and described, half
' a second of it is deleted, brought back, deleted again; the beginning is copied, pasted and mixed; the
' result is saved. The script prints what it does. The control and a file companion have to be
' registered.
'
'   cscript //nologo examples\tour.vbs [FILE.wav]
Option Explicit

Dim source: source = "examples/sounds/plucked.flac"
If WScript.Arguments.Count > 0 Then source = WScript.Arguments(0)
Dim results: results = "out"
Dim files: Set files = CreateObject("Scripting.FileSystemObject")
If Not files.FolderExists(results) Then files.CreateFolder results

Sub Say(text)
    WScript.Echo text
End Sub

' With three decimals and a point in every language.
Function Thousandths(value)
    Dim whole: whole = Int(value * 1000 + 0.5)
    Thousandths = (whole \ 1000) & "." & Right("00" & (whole Mod 1000), 3)
End Function

' The control is the one object to create; everything else is a property of it.
Dim editor: Set editor = CreateObject("KovMavrin2.Mavrin2")
Dim position: Set position = editor.Position

' Positions are counted in samples: one sample is one point in time, in mono and in stereo.
Function Seconds(samples)
    Seconds = samples / editor.FileInfo.Frequency
End Function

Sub TellLength(intro)
    Say intro & " " & position.TotalSamples & " samples long, that is " & _
        Thousandths(Seconds(position.TotalSamples)) & " s."
End Sub

Say "Opening " & source & ":"
editor.Open source

Dim info: Set info = editor.FileInfo
Say "The file's format is: " & info.FormatString & "."
TellLength "The sound is"

' Half a second from 1.5 s on, or the middle fifth of a sound too short for that.
Dim length: length = Seconds(position.TotalSamples)
Dim first, last
first = 1.5
last = 2.0
If length < 2.5 Then
    first = 0.4 * length
    last = 0.6 * length
End If

Say ""
Say "Selecting " & Thousandths(first) & " s ... " & Thousandths(last) & " s."
position.Selected = True
position.StartSelect = position.SecToSamples(Int(1000 * first)) ' takes milliseconds
position.EndSelect = position.SecToSamples(Int(1000 * last))

' A block is what is copied between two events; 100 ms is the smallest there is.
editor.FileBufferSize = Int(1000 * length / 6)

Say "Deleting the selection:"
editor.DeleteSelect
TellLength "The sound is now"

Say ""
Say "That was a mistake: undo."
editor.Undo
TellLength "The sound is again"
Say "What was selected is selected again: samples " & position.StartSelect & " ... " & _
    position.EndSelect & "."

Say ""
Say "Saving just the selection to " & results & "/tour-selection.flac:"
editor.Save results & "/tour-selection.flac", True

Say ""
Say "It was none after all: redo."
editor.Redo
TellLength "The sound is"

' Copied sound is in a file, so that it can come from another document, of another format.
Say ""
Say "Copying the first quarter:"
Dim quarter: quarter = position.TotalSamples \ 4
position.Selected = True
position.StartSelect = 0
position.EndSelect = quarter
editor.Copy

Say "Pasting it at the end:"
position.Selected = False
position.StartSelect = position.TotalSamples
editor.Paste
TellLength "The sound is now"

Say "Mixing it into the second quarter at half its level:"
position.Selected = False
position.StartSelect = quarter
editor.Mix 100, 50

' The extension chooses the format.
Say ""
Dim extension
For Each extension In Array("flac", "mp3", "wav")
    Dim name: name = results & "/tour." & extension
    Say "Saving to " & name & ":"
    editor.Save name, False
    Say "  " & info.FormatString
Next

Say ""
Say "Saving into a folder that is not there, which cannot go well. The control answers:"
On Error Resume Next
editor.Save results & "/no such folder/tour.wav", False
If Err.Number = 0 Then WScript.Quit 1
Say "  status 0x" & Hex(Err.Number) & ": " & Err.Description
On Error Goto 0

editor.Close
Say ""
Say "The end. Listen to " & results & "/tour.wav: a piece is gone, and the beginning comes again."

' An error above ends a script early, and not every host reports it: a caller can check for 42.
WScript.Quit 42
