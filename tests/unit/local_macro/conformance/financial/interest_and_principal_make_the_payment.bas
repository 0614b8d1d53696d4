' In each period interest and principal add up to the payment.
'> True
Sub main()
    allEqual = True
    For period = 1 To 24
        total = IPmt(0.01, period, 24, 5000) + PPmt(0.01, period, 24, 5000)
        If Abs(total - Pmt(0.01, 24, 5000)) > 0.000001 Then allEqual = False
    Next
    Debug.Print allEqual
End Sub
