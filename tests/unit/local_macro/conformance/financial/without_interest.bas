' At a rate of 0 amounts are just added up.
'> 10 1000 1500
Sub main()
    Debug.Print NPer(0, -100, 1000) & " " & PV(0, 10, -100) & " " & FV(0, 10, -100, -500)
End Sub
