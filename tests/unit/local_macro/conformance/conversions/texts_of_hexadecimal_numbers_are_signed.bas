' Four hexadecimal digits in a text are an Integer's bits, eight a Long's, as in a program.
'> -1 65535 -1 255
Sub main()
    Debug.Print CLng("&HFFFF") & " " & CLng("&HFFFF&") & " " & CLng("&HFFFFFFFF") & " " & CLng("&H00FF")
End Sub
