'! 94
Sub main()
    Dim n As Long
    n = Null
End Sub
