' Records and bytes count from 1.
'! 63 Bad record number
Sub main()
    Dim n As Long
    Open "C:\b" For Binary As #1
    Get #1, 0, n
End Sub
