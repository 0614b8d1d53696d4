'! 13
Sub main()
    Dim n As Long
    n = "abc"
End Sub
