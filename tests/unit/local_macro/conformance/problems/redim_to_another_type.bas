' The type of the elements stays as it was declared.
'? 5:19 Can't change data types of array elements
Sub main()
    Dim a() As Long
    ReDim a(1) As String
End Sub
