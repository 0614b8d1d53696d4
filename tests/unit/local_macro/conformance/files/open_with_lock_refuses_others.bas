' "Lock Read Write" lets nobody else open the file; "Shared" lets everybody.
'> 70
'> fine
Sub main()
    Open "C:\b" For Binary Lock Read Write As #1
    On Error Resume Next
    Open "C:\b" For Binary As #2
    Debug.Print Err.Number & ""
    Close
    Err.Clear
    Open "C:\b" For Binary Shared As #1
    Open "C:\b" For Binary Shared As #2
    Debug.Print IIf(Err.Number = 0, "fine", "error")
End Sub
