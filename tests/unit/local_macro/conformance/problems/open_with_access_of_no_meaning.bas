' Access is Read, Write or both.
'? 4:35 Expected: Read or Write
Sub main()
    Open "C:\a" For Binary Access As #1
End Sub
