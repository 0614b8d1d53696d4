' Reading and writing an entry in one statement counts.
'> a=2 b=1
Sub main()
    Dim d As Object, w As Variant, s As String
    Set d = CreateObject("Scripting.Dictionary")
    For Each w In Split("a b a")
        d(w) = d(w) + 1
    Next
    For Each w In d.Keys
        s = s & " " & w & "=" & d(w)
    Next
    Debug.Print Trim(s)
End Sub
