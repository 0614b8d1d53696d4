' Two reference parameters may mean the same variable.
'> 5 5
Sub Mix(a As Long, b As Long)
    a = 5
    Debug.Print a & " " & b
End Sub

Sub main()
    Dim n As Long
    Mix n, n
End Sub
