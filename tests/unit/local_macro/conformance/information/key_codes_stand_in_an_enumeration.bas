' The codes of keys are found behind VBA and behind KeyCodeConstants too; other words that begin with vbKey are no constants.
'> 46 13
'> True
Sub main()
    Debug.Print KeyCodeConstants.vbKeyDelete & " " & VBA.vbKeyReturn
    Debug.Print IsEmpty(vbKeyNothing)
End Sub
