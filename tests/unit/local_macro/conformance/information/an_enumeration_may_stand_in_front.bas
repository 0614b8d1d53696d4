' A constant of the language may be written behind its enumeration's or the language's name.
'> 6 7 1
Sub main()
    Debug.Print VbMsgBoxResult.vbYes & " " & VBA.VbMsgBoxResult.vbNo & " " & VBA.vbTextCompare
End Sub
