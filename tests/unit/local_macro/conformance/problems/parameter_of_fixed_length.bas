' A parameter can't be a String of fixed length.
'? 3:21 A String of fixed length can't be a parameter or a result
Sub Fill(ByRef s As String * 5)
End Sub
Sub main()
End Sub
