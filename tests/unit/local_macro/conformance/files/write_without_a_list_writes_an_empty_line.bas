' Write # without values ends a line.
'> 2
Sub main()
    Open "C:\a.txt" For Output As #1
    Write #1,
    Debug.Print LOF(1) & ""
End Sub
