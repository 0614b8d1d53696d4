' Procedures may call each other before they are written.
'> odd
Function IsEven(n As Long) As Boolean
    If n = 0 Then IsEven = True Else IsEven = IsOdd(n - 1)
End Function

Sub main()
    Debug.Print IIf(IsEven(7), "even", "odd")
End Sub

Function IsOdd(n As Long) As Boolean
    If n = 0 Then IsOdd = False Else IsOdd = IsEven(n - 1)
End Function
