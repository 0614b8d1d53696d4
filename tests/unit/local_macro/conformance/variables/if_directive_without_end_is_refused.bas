' #If needs its #End If.
'? 3:1 #If without #End If
#If True Then
Sub main()
End Sub
