' Val knows exponents, hexadecimal and octal numbers; the suffix & makes those positive.
'> 1200 100 255 15 -1 65535
Sub main()
    Debug.Print Val("1.2E3x") & " " & Val("1d2") & " " & Val("&HFF") & " " & Val("&O17") & " " & Val("&HFFFF") & " " & _
        Val("&HFFFF&")
End Sub
