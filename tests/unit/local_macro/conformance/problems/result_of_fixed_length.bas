' A function can't return a String of fixed length.
'? 3:17 A String of fixed length can't be a parameter or a result
Function F() As String * 5
End Function
Sub main()
End Sub
