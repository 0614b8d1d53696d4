' The sum of two dates is a date, their product a Double.
'> Date Double 2
Sub main()
    Debug.Print TypeName(#1/1/1900# + #1/1/1900#) & " " & TypeName(#1/1/1900# * #1/1/1900#) & " " & _
        (#1/2/1900# - #12/31/1899#)
End Sub
