' A module variable lives as long as the macro runs.
'> 3
Private count As Long

Sub Add()
    count = count + 1
End Sub

Sub main()
    Add
    Add
    Add
    Debug.Print count & ""
End Sub
