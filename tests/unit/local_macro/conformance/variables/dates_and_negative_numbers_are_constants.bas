' Date literals, signs and parentheses are allowed in a constant.
'> 2/29/2024 -6
Const kDay = #2/29/2024#
Const kNegative = -(2 * 3)

Sub main()
    Debug.Print kDay & " " & kNegative
End Sub
