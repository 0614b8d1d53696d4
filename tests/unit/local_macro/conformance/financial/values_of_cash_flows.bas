' NPV is the value today of payments at the ends of periods, IRR the rate at which it is zero, MIRR with two rates.
'> 1188.4434
'> 0.086631
'> 0.126094
Sub main()
    Dim flows() As Double, loan(5) As Double
    ReDim flows(3)
    flows(0) = -10000: flows(1) = 3000: flows(2) = 4200: flows(3) = 6800
    Debug.Print "" & Round(NPV(0.1, flows), 4)
    ReDim flows(5)
    flows(0) = -70000: flows(1) = 12000: flows(2) = 15000: flows(3) = 18000: flows(4) = 21000: flows(5) = 26000
    Debug.Print "" & Round(IRR(flows), 6)
    loan(0) = -120000: loan(1) = 39000: loan(2) = 30000: loan(3) = 21000: loan(4) = 37000: loan(5) = 46000
    Debug.Print "" & Round(MIRR(loan, 0.1, 0.12), 6)
End Sub
