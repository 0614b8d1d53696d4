' QBColor gives the sixteen colors of old.
'> 0 8388608 32768 8421376 128 8388736 32896 12632256
'> 8421504 16711680 65280 16776960 255 16711935 65535 16777215
'! 5 Invalid procedure call or argument
Sub main()
    For i = 0 To 15
        list = list & " " & QBColor(i)
        If i Mod 8 = 7 Then Debug.Print Mid(list, 2): list = ""
    Next
    x = QBColor(16)
End Sub
