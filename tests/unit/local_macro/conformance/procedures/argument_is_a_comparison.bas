' An equal sign within an argument compares.
'> False True
Sub Show(a, b)
    Debug.Print a & " " & b
End Sub

Sub main()
    Dim n As Long
    n = 3
    Show n = 4, (n = 3)
End Sub
