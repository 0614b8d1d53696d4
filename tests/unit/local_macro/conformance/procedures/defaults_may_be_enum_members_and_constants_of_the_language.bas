' A default may be a member of an Enum or a constant such as vbCrLf.
'> 5 2
Enum Level
    high = 5
End Enum

Sub Show(Optional n As Level = high, Optional s As String = vbCrLf)
    Debug.Print n & " " & Len(s)
End Sub

Sub main()
    Show
End Sub
