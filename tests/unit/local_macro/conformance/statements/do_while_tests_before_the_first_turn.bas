' Do While and Do Until test before the body, which may never run.
'> none
Sub main()
    Dim turns As Long
    Do While False
        turns = turns + 1
    Loop
    Do Until True
        turns = turns + 1
    Loop
    Debug.Print IIf(turns = 0, "none", "some")
End Sub
