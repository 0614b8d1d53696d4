' #Else needs its #If.
'? 3:1 #Else without #If
#Else
Sub main()
End Sub
