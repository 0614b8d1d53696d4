' Loop While and Loop Until test behind the body, which runs at least once.
'> 2
Sub main()
    Dim turns As Long
    Do
        turns = turns + 1
    Loop While False
    Do
        turns = turns + 1
    Loop Until True
    Debug.Print turns & ""
End Sub
