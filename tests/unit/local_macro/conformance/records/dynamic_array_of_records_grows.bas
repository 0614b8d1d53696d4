' ReDim Preserve keeps records, and new ones begin with initial values.
'> x []
Type Thing
    s As String
End Type

Sub main()
    Dim a() As Thing
    ReDim a(0)
    a(0).s = "x"
    ReDim Preserve a(1)
    Debug.Print a(0).s & " [" & a(1).s & "]"
End Sub
