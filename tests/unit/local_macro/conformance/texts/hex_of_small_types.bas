' A Byte has two digits at most, a truth value the four of an Integer.
'> FF FFFF 0 377
Sub main()
    Debug.Print Hex(CByte(255)) & " " & Hex(True) & " " & Hex(False) & " " & Oct(CByte(255))
End Sub
