' A type character may stand behind a name wherever it is used.
'> 6 a1
Sub main()
    Dim i%, sum&, s$
    For i% = 1 To 3
        sum& = sum& + i%
    Next i%
    s$ = "a" & 1
    Debug.Print sum& & " " & s$
End Sub
