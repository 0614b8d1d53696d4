' The descriptions of the errors that the language itself raises.
'> 3 Return without GoSub
'> 5 Invalid procedure call or argument
'> 6 Overflow
'> 7 Out of memory
'> 9 Subscript out of range
'> 10 This array is fixed or temporarily locked
'> 11 Division by zero
'> 13 Type mismatch
'> 14 Out of string space
'> 17 Can't perform requested operation
'> 18 User interrupt occurred
'> 20 Resume without error
'> 28 Out of stack space
'> 35 Sub or Function not defined
'> 91 Object variable or With block variable not set
'> 92 For loop not initialized
'> 93 Invalid pattern string
'> 94 Invalid use of Null
Sub main()
    For Each number In Array(3, 5, 6, 7, 9, 10, 11, 13, 14, 17, 18, 20, 28, 35, 91, 92, 93, 94)
        Debug.Print number & " " & Error(number)
    Next
End Sub
