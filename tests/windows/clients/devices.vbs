' The sound devices from a script. Wine's script host delivers no events to it.
Option Explicit

Dim failures: failures = 0

Sub Expect(what, actual, expected)
    If actual <> expected Then
        WScript.Echo what & ": got " & actual & ", expected " & expected
        failures = failures + 1
    End If
End Sub

Dim player: Set player = CreateObject("KovVelto.Velto2")
Dim recorder: Set recorder = CreateObject("KovRimbal2.Rimbal2")
Expect "outputs", player.DeviceCount, 2
Expect "inputs", recorder.DeviceCount, 2
player.DeviceNum = 2
Expect "the default output", "Default: " & player.DeviceName, CreateObject("KovVelto.Velto2").DeviceName
recorder.AGCEnabled = True
Expect "a setting of the recorder", recorder.AGCEnabled <> 0, True

Dim editor: Set editor = CreateObject("KovMavrin2.Mavrin2")
editor.New 44100, 2
editor.Record
Expect "recording", editor.Status, 2
editor.Stop
Expect "idle", editor.Status, 0

If failures > 0 Then WScript.Quit 1
WScript.Quit 42
