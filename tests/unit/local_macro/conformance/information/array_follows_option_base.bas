' Array counts from Option Base, VBA.Array and Split from 0 in any case.
'> 1 2
'> 0 1
'> 0 1
Option Base 1
Sub main()
    Debug.Print LBound(Array(7, 8)) & " " & UBound(Array(7, 8))
    Debug.Print LBound(VBA.Array(7, 8)) & " " & UBound(VBA.Array(7, 8))
    Debug.Print LBound(Split("7 8")) & " " & UBound(Split("7 8"))
End Sub
