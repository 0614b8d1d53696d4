' New needs a class that can be made.
'? 5:13 Invalid use of New keyword: Machine.Part
Sub main()
    Dim o As Object
    Set o = New Machine.Part
End Sub
