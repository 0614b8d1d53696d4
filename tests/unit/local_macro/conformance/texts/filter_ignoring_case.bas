' Filter tells capitals from small letters unless told otherwise.
'> 0 1
Sub main()
    Debug.Print UBound(Filter(Array("Ab", "ab"), "a")) & " " & UBound(Filter(Array("Ab", "ab"), "a", True, vbTextCompare))
End Sub
