' A missing optional argument takes its default, or the type's initial value when there is none.
'> a 7 0
'> a 9 0
Sub Show(s As String, Optional n As Long = 7, Optional m As Double)
    Debug.Print s & " " & n & " " & m
End Sub

Sub main()
    Show "a"
    Show "a", 9
End Sub
