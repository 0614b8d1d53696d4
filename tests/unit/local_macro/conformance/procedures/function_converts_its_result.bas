' What is assigned to a function's name is converted to its type.
'> Integer 3
Function Rounded(x As Double) As Integer
    Rounded = x
End Function

Sub main()
    Debug.Print TypeName(Rounded(2.7)) & " " & Rounded(2.7)
End Sub
