' Of #If, #ElseIf and #Else one arm is compiled; the others needn't even make sense.
'> middle
#Const Size = 2
#If Size = 1 Then
this isn't a program (
#ElseIf Size = 2 Then
Const kArm = "middle"
#Else
Const kArm = "last"
#End If
Sub main()
    Debug.Print kArm
End Sub
