' #If may stand within #If; in a left-out arm nothing of it counts.
'> inner else
#If True Then
    #If False Then
        #If True Then
            nonsense
        #End If
    #Else
        Const kArm = "inner else"
    #End If
#Else
    #Const Never = 1
    nonsense
#End If
Sub main()
    Debug.Print kArm
End Sub
