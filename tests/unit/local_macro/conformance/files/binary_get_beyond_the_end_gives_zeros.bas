' A Get that finds too little fills up with zeros; only then EOF is True.
'> False
'> 0 True
Sub main()
    Dim b As Byte, n As Long
    Open "C:\b" For Binary As #1
    b = 9
    Put #1, , b
    Get #1, 1, b
    Debug.Print EOF(1)
    Get #1, , n
    Debug.Print n & " " & EOF(1)
End Sub
