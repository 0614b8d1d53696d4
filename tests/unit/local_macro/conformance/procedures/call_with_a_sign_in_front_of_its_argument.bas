' Behind a blank a sign or a parenthesis begins the argument of a call.
'> -1 alone
'> 5 2
Sub Show(a, Optional b = "alone")
    Debug.Print a & " " & b
End Sub

Sub main()
    Show -1
    Show (2 + 3), 2
End Sub
