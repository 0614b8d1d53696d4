' One Case may list values, To ranges and Is comparisons; any of them fitting is enough.
'> 1 yes
'> 5 yes
'> 7 no
'> 12 yes
'> -3 yes
Sub main()
    Dim n As Variant
    For Each n In Array(1, 5, 7, 12, -3)
        Select Case n
        Case 1, 4 To 6, Is > 10, Is < 0
            Debug.Print n & " yes"
        Case Else
            Debug.Print n & " no"
        End Select
    Next
End Sub
