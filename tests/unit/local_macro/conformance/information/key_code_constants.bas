' The codes of keys are constants, by themselves or behind KeyCodeConstants.
'> 13 27 9 32 8
'> 37 38 39 40
'> 48 57 65 90
'> 96 111 112 127 144
'> 46
Sub main()
    Debug.Print vbKeyReturn & " " & vbKeyEscape & " " & vbKeyTab & " " & vbKeySpace & " " & vbKeyBack
    Debug.Print vbKeyLeft & " " & vbKeyUp & " " & vbKeyRight & " " & vbKeyDown
    Debug.Print vbKey0 & " " & vbKey9 & " " & vbKeyA & " " & vbKeyZ
    Debug.Print vbKeyNumpad0 & " " & vbKeyDivide & " " & vbKeyF1 & " " & vbKeyF16 & " " & vbKeyNumlock
    Debug.Print KeyCodeConstants.vbKeyDelete & ""
End Sub
