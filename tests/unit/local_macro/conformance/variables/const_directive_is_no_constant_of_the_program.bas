' A name made by #Const is known to #If only.
'? 5:25 Variable not defined: Size
Option Explicit
#Const Size = 2
Sub main(): Debug.Print Size
End Sub
