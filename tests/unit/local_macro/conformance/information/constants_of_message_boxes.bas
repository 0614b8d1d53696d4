' The constants of MsgBox, which are added up.
'> 0 1 2 3 4 5
'> 16 32 48 64 256 512 768
'> 1 2 3 4 5 6 7
Sub main()
    Debug.Print vbOKOnly & " " & vbOKCancel & " " & vbAbortRetryIgnore & " " & vbYesNoCancel & " " & vbYesNo & " " & _
        vbRetryCancel
    Debug.Print vbCritical & " " & vbQuestion & " " & vbExclamation & " " & vbInformation & " " & vbDefaultButton2 & " " & _
        vbDefaultButton3 & " " & vbDefaultButton4
    Debug.Print vbOK & " " & vbCancel & " " & vbAbort & " " & vbRetry & " " & vbIgnore & " " & vbYes & " " & vbNo
End Sub
