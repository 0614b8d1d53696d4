' And, Or, Xor, Eqv, Imp and Not have their usual order.
'> or xor eqv imp not
Sub main()
    Dim s As String
#If True Or False And False Then
    s = s & " or"
#End If
#If True Xor True Or True Then
    s = s & " wrong"
#Else
    s = s & " xor"
#End If
#If False Eqv False Then
    s = s & " eqv"
#End If
#If False Imp True Eqv False Then
    s = s & " imp"
#End If
#If Not 1 = 2 And 2 <> 3 And 3 >= 3 And 2 < 3 And 3 > 2 And 3 <= 3 Then
    s = s & " not"
#End If
    Debug.Print Trim(s)
End Sub
