' Opens files with what is registered, gives them a title and a marker, and saves them: each pair of lines
' in the list names the file to open and the one to save. As package_files.lua.
'
'   package_files.vbs LIST
Option Explicit

Dim files: Set files = CreateObject("Scripting.FileSystemObject")
Dim list: Set list = files.OpenTextFile(WScript.Arguments(0))
Dim editor: Set editor = CreateObject("KovMavrin2.Mavrin2")
Dim source, target
Do Until list.AtEndOfStream
    source = list.ReadLine
    target = list.ReadLine
    On Error Resume Next
    Err.Clear
    editor.Open source
    If Err.Number = 0 Then
        editor.FileInfo.Title = "T" & Chr(237) & "tulo"
        editor.Markers.Insert 1000, 500, "a range"
        editor.Save target, False
    End If
    If Err.Number <> 0 Then WScript.Echo source & ": " & Err.Description
    On Error GoTo 0
Loop
editor.Close
WScript.Quit 42
