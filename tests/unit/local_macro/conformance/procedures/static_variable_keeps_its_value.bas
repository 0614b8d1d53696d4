' A Static variable keeps its value between calls; a local one starts anew.
'> 1 1
'> 2 1
Sub Count()
    Static kept As Long
    Dim fresh As Long
    kept = kept + 1
    fresh = fresh + 1
    Debug.Print kept & " " & fresh
End Sub

Sub main()
    Count
    Count
End Sub
