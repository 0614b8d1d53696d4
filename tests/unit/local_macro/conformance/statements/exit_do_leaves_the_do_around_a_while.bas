' While ... Wend has no Exit of its own: Exit Do inside it leaves the Do around it.
'> out
Sub main()
    Do
        While True
            Exit Do
        Wend
        Debug.Print "not here"
    Loop
    Debug.Print "out"
End Sub
