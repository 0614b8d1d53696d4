' MsgBox gives the number of the button; the language's name may stand in front of it.
'> True Long
Sub main()
    answer = VBA.MsgBox("Go on?", vbYesNo + vbQuestion, "Question")
    Debug.Print (answer = vbYes) & " " & TypeName(answer)
End Sub
