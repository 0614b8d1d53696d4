' With Option Explicit every variable is declared.
'? 5:5 Variable not defined: total
Option Explicit
Sub main()
    total = 1
End Sub
