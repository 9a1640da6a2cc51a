' Late binding by the descriptions, as a script needs it: indices, optional arguments, objects,
' values of every type.
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

Expect "a short", thing.EchoShort(-7), -7
Expect "a double", thing.EchoDouble(0.1), 0.1
Expect "a text", thing.EchoText("one " & 2), "one 2"
Expect "a boolean", thing.EchoBoolean(True), True
Expect "any", thing.EchoAny("x"), "x"
Expect "an enumeration", thing.EchoShape(4), 4

Expect "optional ones left out", thing.WithDefaults(1), "1 7 -1 -2.5 none 4"
Expect "one of them", thing.WithDefaults(1, 2), "1 2 -1 -2.5 none 4"
Expect "in the middle", thing.WithDefaults(1, , 0), "1 7 0 -2.5 none 4"

Dim other: Set other = thing.MakeThing()
Set thing.Friend = other
Expect "by reference", thing.FriendBy, "putref"
Expect "the same object", thing.Friend Is other, True
Expect "passed as an argument", thing.IsSame(thing), True

On Error Resume Next
Err.Clear
thing.Fail &H80040201, "The thing broke."
Expect "the failure's number", Hex(Err.Number), "80040201"
Expect "its words", Err.Description, "The thing broke."
Expect "its source", Err.Source, "MavrinTest.Thing"
Err.Clear
thing.EchoShort 70000
Expect "too large", Err.Number, 6
Err.Clear
On Error Goto 0

If failures > 0 Then WScript.Quit 1
WScript.Quit 42
