' New makes an object wherever an expression may stand.
'> 0
Function CountOf(c As Collection) As Long
    CountOf = c.Count
End Function

Sub main()
    Debug.Print CountOf(New Collection) & ""
End Sub
