' Option Compare Text holds for Select Case too.
'> capital
Option Compare Text
Sub main()
    Select Case "b"
    Case "B": Debug.Print "capital"
    Case Else: Debug.Print "other"
    End Select
End Sub
