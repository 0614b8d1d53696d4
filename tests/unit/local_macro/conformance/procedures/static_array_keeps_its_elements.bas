' Arrays may be static.
'> 0 7
Sub Touch()
    Static a(2) As Long
    Debug.Print a(1) & IIf(a(1) = 0, " ", "");
    a(1) = 7
End Sub

Sub main()
    Touch
    Touch
    Debug.Print
End Sub
