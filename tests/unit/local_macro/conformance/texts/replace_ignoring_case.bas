' Replace tells capitals from small letters unless told otherwise, whatever Option Compare says.
'> aBc
'> aXc
Option Compare Text
Sub main()
    Debug.Print Replace("aBc", "b", "X")
    Debug.Print Replace("aBc", "b", "X", Compare:=vbTextCompare)
End Sub
